// URLs and the paths they name.
#include "support/native.h"

#include <gtest/gtest.h>

#include <unistd.h>

using namespace chroma;
using namespace chroma::test;

namespace {

// The path that comes back from the URL made of the text, "(no URL)" when there is none, "(nil)" when it has no path.
std::string pathOfURL(id text) {
    const CFURLRef url = CFURLCreateWithString(nullptr, text, nullptr);
    if (!url) return "(no URL)";
    return textOf(send(CFURLCopyFileSystemPath(send(url, "autorelease"), 0), "autorelease"));
}

std::string throughPath(std::string_view path) {
    const CFURLRef url = CFURLCreateWithFileSystemPath(nullptr, string(path), 0, 0);
    if (!url) return "(no URL)";
    return textOf(send(CFURLCopyFileSystemPath(send(url, "autorelease"), 0), "autorelease"));
}

} // namespace

TEST(URLs, OfFilesNameTheirPath) {
    Pool pool;
    EXPECT_EQ(pathOfURL(string("file:///a/b%20c/%C3%A9.icc")), "/a/b c/\xC3\xA9.icc");
    EXPECT_EQ(pathOfURL(string("file://localhost/a/b/?query#part")), "/a/b");
    EXPECT_EQ(pathOfURL(string("file:///")), "/");
    EXPECT_EQ(pathOfURL(string("https://example.org:80/x%2Fy?z=/w")), "/x/y");
    EXPECT_EQ(pathOfURL(string("relative/path")), "relative/path");
    EXPECT_EQ(pathOfURL(string("https://example.org")), "(nil)");
    pool.drain();
    EXPECT_EQ(builtin_liveInstances("NSURL"), 0u);
    EXPECT_EQ(builtin_liveInstances("NSString"), 0u);
}

TEST(URLs, ThatAreMalformedAreRefused) {
    const Pool pool;
    for (const char* const text :
         {"", "file:///a b", "file:///%", "file:///%2", "file:///%G0", "file:///\xC3\xA9", "file:///<a>"}) {
        EXPECT_EQ(pathOfURL(string(text)), "(no URL)") << text;
    }
    EXPECT_EQ(pathOfURL(nullptr), "(no URL)");
    EXPECT_EQ(pathOfURL(string("file:///%FF")), "(nil)") << "no UTF-8 behind the escape";
    EXPECT_EQ(pathOfURL(string("file:///a%00b")), "(nil)");
}

TEST(URLs, OfPathsAreAbsolute) {
    const Pool pool;
    char folder[4096];
    ASSERT_NE(getcwd(folder, sizeof folder), nullptr);
    EXPECT_EQ(throughPath("/a/50%/b c/"), "/a/50%/b c");
    EXPECT_EQ(throughPath("a.icc"), std::string(folder) + "/a.icc");
    EXPECT_EQ(throughPath(""), "(no URL)");
    EXPECT_EQ(CFURLCreateWithFileSystemPath(nullptr, string("/a"), 2, 0), nullptr) << "another style than POSIX";
}

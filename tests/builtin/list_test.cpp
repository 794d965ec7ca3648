// Colour lists: order and keys, and what their files hold.
#include "support/native.h"
#include "support/profile_builder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <sys/resource.h>

using namespace chroma;
using namespace chroma::test;

namespace {

namespace fs = std::filesystem;

id newList(std::string_view name) {
    return send(send(sendClass("NSColorList", "alloc"), "initWithName:", string(name)), "autorelease");
}

id listFrom(const fs::path& file) {
    return send(send(sendClass("NSColorList", "alloc"), "initWithName:fromFile:", string("Read"), string(file.string())),
                "autorelease");
}

void set(id list, id color, std::string_view key) { send<void>(list, "setColor:forKey:", color, string(key)); }

void insert(id list, id color, std::string_view key, std::uintptr_t index) {
    send<void>(list, "insertColor:key:atIndex:", color, string(key), index);
}

id colorWithKey(id list, std::string_view key) { return send(list, "colorWithKey:", string(key)); }

bool write(id list, const fs::path& path) { return send<BOOL>(list, "writeToFile:", string(path.string())) != 0; }

std::string keysOf(id list) {
    std::string keys;
    const id enumerator = send(send(list, "allKeys"), "objectEnumerator");
    while (const id key = send(enumerator, "nextObject")) {
        keys += textOf(key) + " ";
    }
    return keys;
}

std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void put(const fs::path& file, std::string_view contents) {
    std::ofstream(file, std::ios::binary).write(contents.data(), static_cast<std::streamsize>(contents.size()));
}

id red() { return sendClass("NSColor", "redColor"); }
id blue() { return sendClass("NSColor", "blueColor"); }

} // namespace

// A new folder for files, which is also the user's data folder.
class ColorLists : public testing::Test {
protected:
    ColorLists() {
        std::string pattern = testing::TempDir() + "builtin-lists-XXXXXX";
        folder = mkdtemp(pattern.data());
        setenv("XDG_DATA_HOME", folder.c_str(), 1);
    }
    ~ColorLists() override { fs::remove_all(folder); }

    // How many files there are in the folder and below.
    std::ptrdiff_t fileCount() const {
        return std::count_if(fs::recursive_directory_iterator(folder), {},
                             [](const auto& entry) { return entry.is_regular_file(); });
    }

    fs::path folder;
};

TEST_F(ColorLists, KeepTheOrderOfInsertion) {
    const Pool pool;
    const id list = newList("Mine");
    EXPECT_EQ(textOf(send(list, "name")), "Mine");
    EXPECT_TRUE(send<BOOL>(list, "isEditable"));
    for (const char* const key : {"a", "b", "c"}) {
        set(list, red(), key);
    }
    insert(list, blue(), "d", 0);
    EXPECT_EQ(keysOf(list), "d a b c ");
    insert(list, blue(), "d", 2);
    EXPECT_EQ(keysOf(list), "a b d c ");
    insert(list, blue(), "c", 0);
    EXPECT_EQ(keysOf(list), "c a b d ");
    insert(list, blue(), "c", 4);
    EXPECT_EQ(keysOf(list), "a b d c ");
    set(list, blue(), "a");
    EXPECT_EQ(keysOf(list), "a b d c ") << "a replacement stays in place";
    EXPECT_EQ(colorWithKey(list, "a"), blue());
    EXPECT_EQ(colorWithKey(list, "b"), red());
    EXPECT_EQ(colorWithKey(list, "B"), nullptr);
    send<void>(list, "removeColorWithKey:", string("d"));
    send<void>(list, "removeColorWithKey:", string("unknown"));
    EXPECT_EQ(keysOf(list), "a b c ");
}

TEST_F(ColorLists, RefuseWhatTheyCannotHold) {
    const Pool pool;
    const id list = newList("Mine");
    EXPECT_TRUE(raises("NSRangeException", [&] { insert(list, red(), "a", 1); }));
    EXPECT_TRUE(raises("NSRangeException", [&] { insert(list, red(), "a", std::numeric_limits<std::uintptr_t>::max()); }));
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { set(list, nullptr, "a"); }));
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { send<void>(list, "setColor:forKey:", red(), id{}); }));
    EXPECT_TRUE(
        raises("NSInvalidArgumentException", [&] { send<void>(list, "setColor:forKey:", string("a"), string("b")); }));
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { send<void>(list, "removeColorWithKey:", id{}); }));
    EXPECT_EQ(keysOf(list), "");
    EXPECT_EQ(send(list, "colorWithKey:", id{}), nullptr);
    EXPECT_EQ(send(sendClass("NSColorList", "alloc"), "initWithName:", id{}), nullptr);
}

TEST_F(ColorLists, OfThePlatformCannotBeEdited) {
    const Pool pool;
    const id list = sendClass("NSColorList", "colorListNamed:", string("System"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list, sendClass("NSColorList", "colorListNamed:", string("System")));
    EXPECT_EQ(colorWithKey(list, "textColor"), sendClass("NSColor", "textColor"));
    EXPECT_FALSE(send<BOOL>(list, "isEditable"));
    for (const char* const key : {"textColor", "new"}) {
        EXPECT_TRUE(raises("NSColorListNotEditableException", [&] { set(list, red(), key); }));
        EXPECT_TRUE(raises("NSColorListNotEditableException", [&] { insert(list, red(), key, 0); }));
        EXPECT_TRUE(
            raises("NSColorListNotEditableException", [&] { send<void>(list, "removeColorWithKey:", string(key)); }));
    }
}

TEST_F(ColorLists, ComeBackFromTheirFileBitForBit) {
    Pool pool;
    const id list = newList("Mine");
    const std::string inks = ProfileBuilder("6CLR").plainText("desc", "Six inks").finish();
    const id data =
        sendClass("NSData", "dataWithBytes:length:", static_cast<const void*>(inks.data()), std::uintptr_t{inks.size()});
    const id sixInks = send(send(sendClass("NSColorSpace", "alloc"), "initWithICCProfileData:", data), "autorelease");
    const float inf = std::numeric_limits<float>::infinity(), tiny = std::numeric_limits<float>::denorm_min();

    set(list, calibratedRGB(0.1f, -0.f, 1e30f, inf), "plain");
    set(list, colorIn(standardSpace("deviceCMYKColorSpace"), {tiny, 0.2f, 0.3f, 0.4f, 1}), "a \"quoted\" \\ key");
    set(list, colorIn(standardSpace("displayP3ColorSpace"), {1, 0, 0, 1}), "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    set(list, colorIn(sixInks, {0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.6f, 0.7f}), "new\nline\x7F");
    set(list, colorIn(sixInks, {1, 1, 1, 1, 1, 1, 1}), " ");
    set(list, sendClass("NSColor", "headerTextColor"), "");
    constexpr UniChar unpaired[] = {0xDE00, u'x', 0xD83D};
    const id unpairedKey = send(CFStringCreateWithCharacters(nullptr, unpaired, 3), "autorelease");
    send<void>(list, "setColor:forKey:", red(), unpairedKey);
    ASSERT_TRUE(write(list, folder / "mine.clr"));

    const id same = listFrom(folder / "mine.clr");
    ASSERT_NE(same, nullptr);
    const id keys = send(list, "allKeys"), sameKeys = send(same, "allKeys");
    ASSERT_EQ(send<std::uintptr_t>(sameKeys, "count"), 7u);
    for (std::uintptr_t index = 0; index < 7; ++index) {
        const id key = send(keys, "objectAtIndex:", index);
        EXPECT_TRUE(send<BOOL>(send(sameKeys, "objectAtIndex:", index), "isEqual:", key)) << index;
        const id color = send(same, "colorWithKey:", key);
        EXPECT_TRUE(send<BOOL>(color, "isEqual:", send(list, "colorWithKey:", key))) << index;
    }
    EXPECT_TRUE(std::signbit(componentsOf(colorWithKey(same, "plain"))[1]));
    const id space = send(colorWithKey(same, " "), "colorSpace");
    EXPECT_EQ(textOf(send(space, "localizedName")), "Six inks");
    EXPECT_EQ(send(colorWithKey(same, "new\nline\x7F"), "colorSpace"), space) << "a space is written once";
    EXPECT_EQ(send(colorWithKey(same, "plain"), "colorSpace"), standardSpace("genericRGBColorSpace"));

    ASSERT_TRUE(write(same, folder / "again.clr"));
    EXPECT_EQ(contentsOf(folder / "again.clr"), contentsOf(folder / "mine.clr"));
    pool.drain();
    for (const char* const cls : {"NSColorList", "NSColor", "NSColorSpace", "NSString", "NSArray"}) {
        EXPECT_EQ(builtin_liveInstances(cls), 0u) << cls;
    }
}

TEST_F(ColorLists, KeepAPatternAndItsSize) {
    const Pool pool;
    struct Size {
        float width;
        float height;
    };
    const id image = send(send(sendClass("NSImage", "alloc"), "initWithSize:", Size{8, 4.5f}), "autorelease");
    const id list = newList("Mine");
    set(list, sendClass("NSColor", "colorWithPatternImage:", image), "tiles");
    ASSERT_TRUE(write(list, folder / "mine.clr"));
    const id same = send(colorWithKey(listFrom(folder / "mine.clr"), "tiles"), "patternImage");
    EXPECT_EQ(send<Size>(same, "size").width, 8);
    EXPECT_EQ(send<Size>(same, "size").height, 4.5f);
}

TEST_F(ColorLists, AreSavedUnderTheirNameWhereNoFileIsNamed) {
    const Pool pool;
    const id list = newList("Caf\xC3\xA9");
    set(list, red(), "a");
    EXPECT_EQ(sendClass("NSColorList", "colorListNamed:", string("Caf\xC3\xA9")), nullptr);
    EXPECT_TRUE(send<BOOL>(list, "writeToFile:", id{}));
    const id found = sendClass("NSColorList", "colorListNamed:", string("Caf\xC3\xA9"));
    EXPECT_TRUE(send<BOOL>(colorWithKey(found, "a"), "isEqual:", red()));
    EXPECT_EQ(textOf(send(found, "name")), "Caf\xC3\xA9");
    EXPECT_TRUE(send<BOOL>(found, "isEditable"));

    EXPECT_TRUE(write(list, folder));
    EXPECT_TRUE(fs::exists(folder / "Caf\xC3\xA9.clr"));

    send<void>(found, "removeFile");
    EXPECT_EQ(sendClass("NSColorList", "colorListNamed:", string("Caf\xC3\xA9")), nullptr);
    EXPECT_TRUE(fs::exists(folder / "Caf\xC3\xA9.clr")) << "a list removes its own file only";
    send<void>(list, "removeFile");
    EXPECT_EQ(fileCount(), 0);
    ASSERT_TRUE(write(found, folder));
    send<void>(list, "removeFile");
    EXPECT_EQ(fileCount(), 1) << "a list removes its file once";

    for (const char* const name : {"../outside", "", "a/b"}) {
        EXPECT_FALSE(send<BOOL>(newList(name), "writeToFile:", id{})) << name;
        EXPECT_EQ(sendClass("NSColorList", "colorListNamed:", string(name)), nullptr);
    }
    EXPECT_EQ(sendClass("NSColorList", "colorListNamed:", id{}), nullptr);
}

TEST_F(ColorLists, LeaveTheOldFileWhenWritingFails) {
    const Pool pool;
    const id list = newList("Mine");
    set(list, red(), "a");
    const fs::path file = folder / "mine.clr";
    ASSERT_TRUE(write(list, file));
    const std::string old = contentsOf(file);
    for (int index = 0; index < 200; ++index) {
        set(list, blue(), "key " + std::to_string(index));
    }
    // The disk is full halfway through.
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{1000, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const bool isWritten = write(list, file);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_FALSE(isWritten);
    EXPECT_EQ(contentsOf(file), old);
    EXPECT_EQ(fileCount(), 1) << "nothing is left beside it";

    EXPECT_FALSE(write(list, folder / "missing" / "mine.clr"));
    EXPECT_FALSE(write(list, ""));
    EXPECT_TRUE(write(list, file));
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(ColorLists, AreNotReadFromMalformedFiles) {
    const Pool pool;
    const id list = newList("Mine");
    set(list, calibratedRGB(0.1f, 0.2f, 0.3f), "a");
    set(list, colorIn(standardSpace("sRGBColorSpace"), {0.1f, 0.2f, 0.3f, 1}), "b\n");
    set(list, sendClass("NSColor", "textColor"), "c");
    const fs::path file = folder / "mine.clr";
    ASSERT_TRUE(write(list, file));
    const std::string whole = contentsOf(file);
    ASSERT_NE(listFrom(file), nullptr);

    EXPECT_EQ(listFrom(folder / "missing.clr"), nullptr);
    EXPECT_EQ(listFrom(folder), nullptr);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        put(file, std::string_view(whole).substr(0, size));
        EXPECT_EQ(listFrom(file), nullptr) << "cut to " << size;
    }
    const auto isRead = [&](std::string_view from, std::string_view to) {
        std::string changed = whole;
        const std::size_t place = changed.find(from);
        if (place == std::string::npos) return true;
        put(file, changed.replace(place, from.size(), to));
        return listFrom(file) != nullptr;
    };
    EXPECT_TRUE(isRead("\"a\"", "\"another key\""));
    EXPECT_FALSE(isRead("list 1", "list 2"));
    EXPECT_FALSE(isRead("genericRGB", "noRGB"));
    EXPECT_FALSE(isRead("space 1", "space 0"));
    EXPECT_FALSE(isRead("space 1 standard sRGB", "space 1 profile 00ff"));
    EXPECT_FALSE(isRead("space 1 standard sRGB", "space 1 profile 0f0"));
    EXPECT_FALSE(isRead("components 0", "components 7"));
    EXPECT_FALSE(isRead("components 0", "components 0 00000000"));
    EXPECT_FALSE(isRead("3dcccccd", "3dccccc"));
    EXPECT_FALSE(isRead("3dcccccd", "3dcccccg"));
    EXPECT_FALSE(isRead("\\u000a", "\\u00"));
    EXPECT_FALSE(isRead("\\u000a", "\\x"));
    EXPECT_FALSE(isRead("\"a\"", "\"\xFF\""));
    EXPECT_FALSE(isRead("\"a\"", "\"c\"")) << "one key twice";
    EXPECT_FALSE(isRead("System textColor", "System noColor"));
    EXPECT_FALSE(isRead("System textColor", "Crayons textColor"));
    EXPECT_FALSE(isRead("end 3", "end 2"));
    put(file, whole + "\n");
    EXPECT_EQ(listFrom(file), nullptr);
}

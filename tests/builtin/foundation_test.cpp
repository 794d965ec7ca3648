// Strings in every encoding, in both directions and strict; URLs; data, arrays and dictionaries.
#include "support/native.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>

#include <sys/stat.h>

using namespace chroma;
using namespace chroma::test;
using namespace std::string_literals;

using Strings = PlatformTest;
using URLs = PlatformTest;
using Collections = PlatformTest;

namespace {

constexpr CFStringEncoding macRoman = REALencodingMacRoman, utf16 = REALencodingUTF16, latin1 = REALencodingLatin1,
                           windowsLatin1 = REALencodingWindowsLatin1, ascii = REALencodingASCII, utf8 = REALencodingUTF8,
                           utf32 = REALencodingUTF32;

id decode(std::string_view bytes, CFStringEncoding encoding, bool isExternal = false) {
    const auto* const start = reinterpret_cast<const std::uint8_t*>(bytes.data());
    return send(CFStringCreateWithBytes(nullptr, start, static_cast<CFIndex>(bytes.size()), encoding, isExternal),
                "autorelease");
}

template <class Unit>
std::string encoded(const std::basic_string<Unit>& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(Unit)};
}

id fromUnits(std::u16string_view units) {
    return send(CFStringCreateWithCharacters(nullptr, reinterpret_cast<const UniChar*>(units.data()),
                                             static_cast<CFIndex>(units.size())),
                "autorelease");
}

std::u16string unitsOf(id string) {
    std::u16string units;
    for (CFIndex i = 0; string && i < CFStringGetLength(string); ++i)
        units.push_back(send<char16_t>(string, "characterAtIndex:", static_cast<std::uintptr_t>(i)));
    return units;
}

std::string encode(id string, CFStringEncoding encoding) {
    char buffer[1024];
    return CFStringGetCString(string, buffer, sizeof buffer, encoding) ? buffer : "(refused)";
}

// Returns the path that a URL names, or "(no URL)" for null.
std::string pathOf(CFURLRef url) {
    if (!url) return "(no URL)";
    return textOf(send(CFURLCopyFileSystemPath(send(url, "autorelease"), 0), "autorelease"));
}

// The characters at which the length of a UTF-8 sequence changes.
const char* const limitsInUtf8 =
    "\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";

} // namespace

TEST_F(Strings, DecodeBytesInEveryEncoding) {
    const std::u16string text = u"a\u00E9\u20AC\U0001F600z";
    const std::u16string limits = u"\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF";
    // A byte order mark counts only in an external representation. Without a mark, the text is in the machine's byte order.
    constexpr bool external = true;
    const std::tuple<std::string, CFStringEncoding, bool, std::u16string> cases[] = {
        {"a\x80\xDB\xF0\xCA", macRoman, false, u"a\u00C4\u20AC\uF8FF\u00A0"},
        {"a\x80\xFF", latin1, false, u"a\u0080\u00FF"},
        {"a\x80\x9F\xA0\xFF", windowsLatin1, false, u"a\u20AC\u0178\u00A0\u00FF"},
        {"a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z", utf8, false, text},
        {limitsInUtf8, utf8, false, limits},
        {"0123456789\xC3\xA9 0123456789", utf8, false, u"0123456789\u00E9 0123456789"},
        {encoded(text), utf16, false, text},
        {encoded<char32_t>(U"a\u00E9\u20AC\U0001F600z"), utf32, false, text},
        {"\xEF\xBB\xBFz", utf8, false, u"\uFEFFz"},
        {"\xEF\xBB\xBFz", utf8, external, u"z"},
        {"\xFE\xFF\0z\xD8\x3D\xDE\0"s, utf16, external, u"z\U0001F600"},
        {"\xFF\xFEz\0"s, utf16, external, u"z"},
        {"\0\0\xFE\xFF\0\1\xF6\0"s, utf32, external, u"\U0001F600"},
        {"\xFF\xFE\0\0z\0\0\0"s, utf32, external, u"z"},
        {"\xFE\xFF"s, utf16, external, u""},
        {"z\0"s, utf16, external, u"z"}};
    for (const auto& [bytes, encoding, isExternal, units] : cases)
        EXPECT_EQ(unitsOf(decode(bytes, encoding, isExternal)), units) << testing::PrintToString(bytes);
    const std::pair<CFStringEncoding, std::vector<std::string>> malformed[] = {
        {ascii, {"\x80"}},
        {windowsLatin1, {"\x81"}},
        {REALencodingUnknown, {"abc"}},
        {utf8,
         {"\x80", "\xC3", "ab\xC3", "\xC3(", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
          "\xF8\x90\x80\x80", "a\xFF"}},
        {utf16, {"abc", encoded<char16_t>({0xD83D, u'a'})}},
        {utf32, {"abcde", encoded<char32_t>({0xD800}), encoded<char32_t>({0x110000})}}};
    for (const auto& [encoding, texts] : malformed)
        for (const std::string& bytes : texts)
            EXPECT_EQ(decode(bytes, encoding), nullptr) << testing::PrintToString(bytes) << " in " << std::hex << encoding;
    for (const CFIndex count : {3, -1})
        EXPECT_EQ(CFStringCreateWithBytes(nullptr, nullptr, count, utf8, 0), nullptr);
}

TEST_F(Strings, EncodeCompletelyOrFail) {
    const std::tuple<std::u16string, CFStringEncoding, const char*> cases[] = {
        {u"\u20AC", macRoman, "\xDB"},
        {u"\u20AC", windowsLatin1, "\x80"},
        {u"\u20AC", latin1, "(refused)"},
        {u"\u0080", ascii, "(refused)"},
        {u"a\u00E9\u20AC\U0001F600z", utf8, "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z"},
        {u"\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF", utf8, limitsInUtf8},
        {u"a", utf16, "(refused)"}, // its units are not bytes
        {u"\u20AC", utf16, "(refused)"},
        {{0xD83D}, utf8, "(refused)"},
        {{0xDE00, 0xD83D}, utf8, "(refused)"},
        {{0xD83D, u'a'}, utf8, "(refused)"}};
    for (const auto& [units, encoding, bytes] : cases) {
        const id string = fromUnits(units);
        EXPECT_EQ(unitsOf(string), units) << "a string may have any units";
        EXPECT_EQ(encode(string, encoding), bytes) << std::hex << encoding;
    }
    EXPECT_EQ(send<const char*>(fromUnits(std::u16string{0xD83D}), "UTF8String"), nullptr);

    char buffer[8] = "unread";
    EXPECT_TRUE(CFStringGetCString(fromUnits(u"\u20AC"), buffer, 4, utf8));
    EXPECT_STREQ(buffer, "\xE2\x82\xAC");
    EXPECT_FALSE(CFStringGetCString(fromUnits(u"\u20AC"), buffer, 3, utf8));
    EXPECT_STREQ(buffer, "");
    EXPECT_TRUE(CFStringGetCString(string("abc"), buffer, 4, macRoman));
    EXPECT_STREQ(buffer, "abc");
    EXPECT_EQ(buffer[4], 'a') << "nothing is written past the end";
    EXPECT_FALSE(CFStringGetCString(string("abc"), buffer, 3, utf8));
    EXPECT_STREQ(buffer, "");
    EXPECT_FALSE(CFStringGetCString(fromUnits(u""), buffer, 0, utf8));
    EXPECT_TRUE(CFStringGetCString(fromUnits(u""), buffer, 1, utf8));
    EXPECT_FALSE(CFStringGetCString(fromUnits(u""), nullptr, 1, utf8));
}

TEST_F(Strings, EncodeAsManyCharactersAsFit) {
    // The encoding, the capacity, and the number of units and bytes written.
    const std::tuple<CFStringEncoding, CFIndex, CFIndex, CFIndex> cases[] = {
        {utf8, 6, 4, 6},    {utf8, 5, 3, 5},   {utf8, 4, 1, 1},     {utf16, 8, 4, 8}, {utf16, 5, 1, 2},
        {utf32, 12, 4, 12}, {utf32, 11, 3, 8}, {macRoman, 8, 1, 1}, {0x999, 8, 0, 0}};
    const id text = fromUnits(u"a\U00010000b");
    for (const auto& [encoding, capacity, units, bytes] : cases) {
        std::uint8_t buffer[12] = {};
        CFIndex used = -1;
        EXPECT_EQ(CFStringGetBytes(text, {0, 4}, encoding, 0, 0, buffer, capacity, &used), units)
            << encoding << " " << capacity;
        EXPECT_EQ(used, bytes) << encoding << " " << capacity;
        const std::string written(reinterpret_cast<char*>(buffer), static_cast<std::size_t>(used));
        const std::string expected = encoding == utf16 ? encoded(u"a\U00010000b"s) : "a";
        EXPECT_EQ(written.substr(0, expected.size()), expected.substr(0, written.size()));
    }
    // Several ASCII characters are copied at once, but not in the wide encodings.
    const std::u16string wide = u"01234567\U00010401";
    std::uint8_t all[20] = {};
    CFIndex used = 0;
    EXPECT_EQ(CFStringGetBytes(fromUnits(wide), {0, 10}, utf16, 0, 0, all, sizeof all, &used), 10);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(all), sizeof all), encoded(wide));
    EXPECT_EQ(CFStringGetBytes(fromUnits(wide), {0, 10}, utf8, 0, 0, all, 11, &used), 8);
    EXPECT_EQ(CFStringGetBytes(fromUnits(u"\0"s), {0, 1}, latin1, 0, 0, all, 1, &used), 1);
    std::uint8_t last = 0;
    EXPECT_EQ(CFStringGetBytes(text, {3, 1}, utf8, 0, 0, &last, 1, &used), 1);
    EXPECT_EQ(last, 'b');
}

TEST_F(Strings, CompareByContents) {
    const id first = string("abc"), same = fromUnits(u"abc"), later = string("abd");
    for (const char* const message : {"isEqual:", "isEqualToString:"}) {
        EXPECT_TRUE(send<BOOL>(first, message, same)) << message;
        EXPECT_FALSE(send<BOOL>(first, message, later)) << message;
    }
    for (const id empty : {created("NSString", "init"), decode({}, utf8), fromUnits({})})
        EXPECT_TRUE(isEqual(empty, string("")));
    EXPECT_EQ(send<std::uintptr_t>(first, "hash"), send<std::uintptr_t>(same, "hash"));
    for (const auto& [other, order] : {std::pair{later, -1},
                                       {same, 0},
                                       {string("abb"), 1},
                                       {fromUnits(u"ab\u00E9"), -1},
                                       {string("ab"), 1},
                                       {string("abcd"), -1}})
        EXPECT_EQ(send<std::intptr_t>(first, "compare:", other), order);
    EXPECT_FALSE(isEqual(first, color("redColor")));
    EXPECT_TRUE(refuses([&] { send<BOOL>(first, "isEqualToString:", color("redColor")); }));
    EXPECT_TRUE(raises("NSRangeException", [&] { send<char16_t>(first, "characterAtIndex:", std::uintptr_t{3}); }));
}

TEST_F(URLs, ReturnTheirFileSystemPath) {
    const std::pair<const char*, std::vector<const char*>> urls[] = {
        {"/a/b c/\xC3\xA9.icc", {"file:///a/b%20c/%C3%A9.icc"}},
        {"/a/b", {"file://localhost/a/b/?query#part"}},
        {"/", {"file:///"}},
        {"/x/y", {"https://example.org:80/x%2Fy?z=/w"}},
        {"relative/path", {"relative/path"}},
        {"1a:/b", {"1a:/b"}}, // a scheme starts with a letter
        {"(nil)", {"https://example.org", "file:///%FF", "file:///a%00b"}},
        {"(no URL)", {"", "file:///a b", "file:///%", "file:///%2", "file:///%G0", "file:///\xC3\xA9", "file:///<a>"}}};
    for (const auto& [path, texts] : urls)
        for (const char* const text : texts)
            EXPECT_EQ(pathOf(CFURLCreateWithString(nullptr, string(text), nullptr)), path) << text;
    const std::pair<const char*, std::string> paths[] = {
        {"/a/50%/b c/", "/a/50%/b c"}, {"a.icc", std::filesystem::current_path() / "a.icc"}, {"", "(no URL)"}};
    for (const auto& [path, absolute] : paths)
        EXPECT_EQ(pathOf(CFURLCreateWithFileSystemPath(nullptr, string(path), 0, 0)), absolute);
    EXPECT_EQ(CFURLCreateWithString(nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(CFURLCreateWithFileSystemPath(nullptr, string("/a"), 2, 0), nullptr) << "a style other than POSIX";
}

TEST_F(Collections, DataCopiesItsBytesAndReadsCompleteFiles) {
    std::string contents(50000, 'c');
    const id data = dataOf(contents), none = sendClass("NSData", "data");
    contents[0] = 'x';
    EXPECT_EQ(send<char*>(data, "bytes")[0], 'c');
    EXPECT_FALSE(isEqual(data, none));
    EXPECT_EQ(send<const void*>(none, "bytes"), nullptr);

    const std::string path = testing::TempDir() + "builtin-data-\xC3\xA9";
    const auto read = [&] { return sendClass("NSData", "dataWithContentsOfFile:", string(path)); };
    contents[0] = 'c';
    std::ofstream(path) << contents;
    EXPECT_TRUE(isEqual(read(), data));
    std::filesystem::remove(path);
    EXPECT_EQ(read(), nullptr);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(read(), nullptr) << "a pipe";
    std::filesystem::remove(path);
    EXPECT_EQ(sendClass("NSData", "dataWithContentsOfFile:", string(testing::TempDir())), nullptr) << "a folder";
    EXPECT_EQ(sendClass("NSData", "dataWithContentsOfFile:", id{}), nullptr);
}

TEST_F(Collections, ArraysKeepObjectsInOrder) {
    const id objects[] = {string("a"), string("b"), string("a"), nullptr};
    const auto arrayOf = [&](std::uintptr_t count) {
        return sendClass("NSArray", "arrayWithObjects:count:", &objects[0], count);
    };
    const id array = arrayOf(3), enumerator = send(array, "objectEnumerator");
    EXPECT_EQ(send<std::uintptr_t>(array, "count"), 3u);
    EXPECT_EQ(send(array, "objectAtIndex:", std::uintptr_t{1}), objects[1]);
    EXPECT_TRUE(raises("NSRangeException", [&] { send(array, "objectAtIndex:", std::uintptr_t{3}); }));
    EXPECT_TRUE(refuses([&] { arrayOf(4); })) << "contains nil";
    for (const id object : objects)
        EXPECT_EQ(send(enumerator, "nextObject"), object);
    EXPECT_EQ(send(enumerator, "nextObject"), nullptr);
}

TEST_F(Collections, DictionariesReturnTheLatestValueOfAPointerKey) {
    const CFMutableDictionaryRef dictionary = CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr);
    std::map<const void*, const void*> expected;
    static const char keys[500] = {};
    EXPECT_EQ(CFDictionaryCreateMutable(nullptr, 0, keys, nullptr), nullptr) << "holds plain pointers only";
    EXPECT_EQ(CFDictionaryCreateMutable(nullptr, 0, nullptr, keys), nullptr);
    EXPECT_EQ(CFDictionaryGetValue(dictionary, keys), nullptr);
    CFDictionaryRemoveValue(dictionary, keys);
    std::minstd_rand random;
    for (int step = 0; step < 5000; ++step) {
        const void *const key = step % 50 ? &keys[random() % std::size(keys)] : nullptr, *const value = &keys[step % 7];
        if (random() % 2) {
            CFDictionarySetValue(dictionary, key, value);
            expected[key] = value;
        } else {
            CFDictionaryRemoveValue(dictionary, key);
            expected.erase(key);
        }
    }
    EXPECT_EQ(CFDictionaryGetCount(dictionary), static_cast<CFIndex>(expected.size()));
    for (const char& key : keys) {
        const auto pair = expected.find(&key);
        EXPECT_EQ(CFDictionaryGetValue(dictionary, &key), pair == expected.end() ? nullptr : pair->second);
    }
    CFRelease(dictionary);
}

#include "values/platform.h"
#include "values/storage.h"

#include "host_test.h"

#include <cstdint>

using namespace host;

using Strings = StartedHost;

// Returns UTF-16 or UTF-32 units as the bytes that they have in memory.
template <class Unit>
static std::string unitBytes(std::initializer_list<Unit> units) {
    return {reinterpret_cast<const char*>(units.begin()), units.size() * sizeof(Unit)};
}

TEST_F(Strings, ExposeTheirStorageWhileReferenced) {
    const auto build = entry<REALBuildStringProc>("REALBuildString");
    const auto unlockString = entry<REALUnlockStringProc>("REALUnlockString");
    const std::string text(300, 'x');
    String* const string = build(text.data(), 300);
    entry<REALLockStringProc>("REALLockString")(string);
    unlockString(string);
    EXPECT_EQ(liveStringCount(), 1u);
    const auto* const buffer = readAt<const char*>(string, REALstringBufferOffset);
    EXPECT_EQ(readAt<std::int32_t>(string, REALstringLengthOffset), 300);
    EXPECT_EQ(std::string(buffer + 1, 300), text);
    EXPECT_EQ(buffer[0], '\xFF');
    unlockString(string);
    EXPECT_EQ(liveStringCount(), 0u);
    unlockString(nullptr);
    EXPECT_EQ(build(nullptr, 3), nullptr);
    EXPECT_EQ(build("abc", -1), nullptr);
    EXPECT_EQ(newString(""), nullptr);
}

TEST_F(Strings, ConvertBetweenEncodings) {
    const auto convertString = entry<REALConvertStringProc>("REALConvertString");
    const std::string face = "a\xE2\x82\xAC\xF0\x9F\x98\x80";
    const std::string face16 = unitBytes<char16_t>({'a', 0x20AC, 0xD83D, 0xDE00});
    const std::string face32 = unitBytes<char32_t>({'a', 0x20AC, 0x1F600});
    // The source encoding, the bytes, the target encoding, and the expected bytes. They are empty if the text cannot be
    // written.
    const std::tuple<Encoding, std::string, Encoding, std::string> cases[] = {
        {encoding::utf8, "\xC3\xA9", encoding::macRoman, "\x8E"},
        {encoding::unknown, "\x8E", encoding::utf8, "\xC3\xA9"},
        {encoding::utf8, face, encoding::utf16, face16},
        {encoding::utf16, face16, encoding::utf8, face},
        {encoding::utf8, face, encoding::utf32, face32},
        {encoding::utf32, face32, encoding::utf8, face},
        {encoding::utf16, unitBytes<char16_t>({'a', 0, 'b'}), encoding::utf8, std::string("a\0b", 3)},
        {encoding::ascii, "plain", encoding::windowsLatin1, "plain"},
        {encoding::utf8, "\xE2\x82\xAC", encoding::ascii, ""},
        {encoding::utf8, "\xFF\xFE", encoding::utf16, ""},
        {0x12345678, "abc", encoding::utf8, ""}};
    for (const auto& [from, bytes, to, expected] : cases) {
        const Held converted(convertString(Held(newString(bytes, from)), to));
        EXPECT_EQ(bytesOf(converted), expected) << std::hex << from << " to " << to;
        EXPECT_EQ(encodingOf(converted), expected.empty() ? encoding::unknown : to);
    }
    EXPECT_EQ(convertString(nullptr, encoding::utf8), nullptr);
}

TEST_F(Strings, ConvertToPlatformStringsThatTheCallerOwns) {
    const platform::AutoreleasePool pool;
    const auto getCFString = entry<REALGetStringCFStringProc>("REALGetStringCFString");
    const void* const text = getCFString(Held(newString("\xE9t\xE9", encoding::isoLatin1)), 0);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(platform::textOf(text, encoding::utf8), "\xC3\xA9t\xC3\xA9");
    EXPECT_EQ(platform::textOf(text, encoding::ascii), std::nullopt);
    platform::releaseCFString(text);
    EXPECT_EQ(getCFString(nullptr, 0), nullptr);
}

TEST_F(Strings, SettingTheEncodingKeepsTheBytes) {
    const Held string(entry<REALBuildStringProc>("REALBuildString")("\xE9", 1));
    EXPECT_EQ(encodingOf(string), encoding::unknown);
    entry<REALSetStringEncodingProc>("REALSetStringEncoding")(string, encoding::isoLatin1);
    EXPECT_EQ(entry<REALGetStringEncodingProc>("REALGetStringEncoding")(string), encoding::isoLatin1);
    EXPECT_EQ(utf8Of(string), "\xC3\xA9");
}

TEST_F(Strings, ConcatenateAndCompare) {
    const Held latin(newString("\xE9", encoding::isoLatin1)), utf8(newString("\xC3\xA9", encoding::utf8));
    const Held upper(newString("Ab", encoding::utf8)), lower(newString("aB", encoding::ascii));
    EXPECT_EQ(compare(latin, utf8, false), 0);
    EXPECT_NE(compare(upper, lower, false), 0);
    EXPECT_EQ(compare(upper, lower, true), 0);
    EXPECT_LT(compare(nullptr, upper, true), 0);
    EXPECT_GT(compare(utf8, upper, true), 0);

    const Held mixed(concatenate(latin, utf8)), same(concatenate(latin, nullptr));
    EXPECT_EQ(bytesOf(mixed), "\xC3\xA9\xC3\xA9");
    EXPECT_EQ(encodingOf(mixed), encoding::utf8);
    EXPECT_EQ(bytesOf(same), "\xE9");
    EXPECT_EQ(encodingOf(same), encoding::isoLatin1);
    EXPECT_EQ(concatenate(nullptr, nullptr), nullptr);
}

#include "model/platform.h"
#include "model/strings.h"

#include "entry.h"

#include <cstring>

using namespace host;

namespace {

std::string bytesIn(const String* string) { return std::string(bytesOf(string)); }

// UTF-16 or UTF-32 units as the bytes they have in memory.
template <class Unit>
std::string unitBytes(std::initializer_list<Unit> units) {
    return {reinterpret_cast<const char*>(units.begin()), units.size() * sizeof(Unit)};
}

} // namespace

TEST(Strings, ShowTheirStorageAtTheContractsOffsets) {
    const std::string text(300, 'x');
    String* const string = newString(text, encoding::utf8);
    const unsigned char* buffer = nullptr;
    std::int32_t length = 0;
    std::memcpy(&buffer, reinterpret_cast<const char*>(string) + REALstringBufferOffset, sizeof buffer);
    std::memcpy(&length, reinterpret_cast<const char*>(string) + REALstringLengthOffset, sizeof length);
    EXPECT_EQ(length, 300);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(buffer) + 1, 300), text);
    EXPECT_EQ(buffer[0], 255);
    EXPECT_EQ(encodingOf(string), encoding::utf8);
    unlock(string);
    EXPECT_EQ(newString(""), nullptr);
}

TEST(Strings, CountReferences) {
    startHost();
    String* const string = entry<REALBuildStringProc>("REALBuildString")("abc", 3);
    EXPECT_EQ(encodingOf(string), encoding::unknown);
    entry<REALLockStringProc>("REALLockString")(string);
    const auto unlockString = entry<REALUnlockStringProc>("REALUnlockString");
    unlockString(string);
    EXPECT_EQ(liveStringCount(), 1u);
    unlockString(string);
    EXPECT_EQ(liveStringCount(), 0u);
    unlockString(nullptr);
    EXPECT_EQ(entry<REALBuildStringProc>("REALBuildString")(nullptr, 3), nullptr);
    EXPECT_EQ(entry<REALBuildStringProc>("REALBuildString")("abc", -1), nullptr);
}

TEST(Strings, ConvertBetweenEncodings) {
    startHost();
    const auto convertString = entry<REALConvertStringProc>("REALConvertString");
    struct {
        Encoding from;
        std::string bytes;
        Encoding to;
        std::string expected;
    } const cases[] = {
        {encoding::isoLatin1, "\xE9t\xE9", encoding::utf8, "\xC3\xA9t\xC3\xA9"},
        {encoding::utf8, "\xC3\xA9", encoding::macRoman, "\x8E"},
        {encoding::unknown, "\x8E", encoding::utf8, "\xC3\xA9"},
        {encoding::utf8, "a\xE2\x82\xAC\xF0\x9F\x98\x80", encoding::utf16,
         unitBytes<char16_t>({'a', 0x20AC, 0xD83D, 0xDE00})},
        {encoding::utf16, unitBytes<char16_t>({'a', 0x20AC, 0xD83D, 0xDE00}), encoding::utf8,
         "a\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {encoding::utf8, "\xF0\x9F\x98\x80z", encoding::utf32, unitBytes<char32_t>({0x1F600, 'z'})},
        {encoding::utf32, unitBytes<char32_t>({0x1F600, 'z'}), encoding::utf8, "\xF0\x9F\x98\x80z"},
        {encoding::utf16, unitBytes<char16_t>({'a', 0, 'b'}), encoding::utf8, std::string("a\0b", 3)},
        {encoding::ascii, "plain", encoding::windowsLatin1, "plain"},
    };
    for (const auto& c : cases) {
        String* const source = newString(c.bytes, c.from);
        String* const converted = convertString(source, c.to);
        EXPECT_EQ(bytesIn(converted), c.expected) << std::hex << c.from << " to " << c.to;
        EXPECT_EQ(encodingOf(converted), c.to);
        unlock(source);
        unlock(converted);
    }
    EXPECT_EQ(convertString(nullptr, encoding::utf8), nullptr);
    EXPECT_EQ(liveStringCount(), 0u);
}

TEST(Strings, AnswerNothingWhereTheTextCannotBeWritten) {
    startHost();
    String* const euro = newString("\xE2\x82\xAC", encoding::utf8);
    String* const broken = newString("\xFF\xFE", encoding::utf8);
    String* const foreign = newString("abc", 0x12345678);
    EXPECT_EQ(convert(euro, encoding::ascii), nullptr);
    EXPECT_EQ(convert(broken, encoding::utf16), nullptr);
    EXPECT_EQ(convert(foreign, encoding::utf8), nullptr);
    EXPECT_EQ(utf8Of(foreign), "");
    for (String* string : {euro, broken, foreign})
        unlock(string);
}

TEST(Strings, AreHandedToThePlatformWithANewReference) {
    startHost();
    const platform::AutoreleasePool pool;
    const auto getCFString = entry<REALGetStringCFStringProc>("REALGetStringCFString");
    String* const string = newString("\xE9t\xE9", encoding::isoLatin1);
    const void* const text = getCFString(string, 0);
    unlock(string);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(platform::textOf(text, encoding::utf8), "\xC3\xA9t\xC3\xA9");
    EXPECT_EQ(platform::textOf(text, encoding::ascii), std::nullopt);
    platform::releaseCFString(text);
    EXPECT_EQ(getCFString(nullptr, 0), nullptr);
}

TEST(Strings, SettingTheEncodingConvertsNothing) {
    startHost();
    String* const string = newString("\xE9", encoding::unknown);
    entry<REALSetStringEncodingProc>("REALSetStringEncoding")(string, encoding::isoLatin1);
    EXPECT_EQ(entry<REALGetStringEncodingProc>("REALGetStringEncoding")(string), encoding::isoLatin1);
    EXPECT_EQ(bytesIn(string), "\xE9");
    EXPECT_EQ(utf8Of(string), "\xC3\xA9");
    unlock(string);
}

TEST(Strings, JoinAndCompareTexts) {
    startHost();
    String* const latin = newString("\xE9", encoding::isoLatin1);
    String* const utf8 = newString("\xC3\xA9", encoding::utf8);
    String* const upper = newString("Ab", encoding::utf8);
    String* const lower = newString("aB", encoding::ascii);
    EXPECT_EQ(compare(latin, utf8, false), 0);
    EXPECT_NE(compare(upper, lower, false), 0);
    EXPECT_EQ(compare(upper, lower, true), 0);
    EXPECT_LT(compare(nullptr, upper, true), 0);
    EXPECT_GT(compare(utf8, upper, true), 0);

    String* const mixed = concatenate(latin, utf8);
    EXPECT_EQ(bytesIn(mixed), "\xC3\xA9\xC3\xA9");
    EXPECT_EQ(encodingOf(mixed), encoding::utf8);
    String* const same = concatenate(latin, nullptr);
    EXPECT_EQ(bytesIn(same), "\xE9");
    EXPECT_EQ(encodingOf(same), encoding::isoLatin1);
    EXPECT_EQ(concatenate(nullptr, nullptr), nullptr);
    for (String* string : {latin, utf8, upper, lower, mixed, same})
        unlock(string);
}

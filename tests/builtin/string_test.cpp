// Strings: encodings both ways, strictly.
#include "support/native.h"

#include <gtest/gtest.h>

using namespace chroma;
using namespace chroma::test;

namespace {

constexpr CFStringEncoding macRoman = 0, utf16 = 0x100, latin1 = 0x201, windowsLatin1 = 0x500, ascii = 0x600,
                           utf8 = 0x08000100, utf32 = 0x0C000100;

id decode(std::string_view bytes, CFStringEncoding encoding, bool isExternal = false) {
    const auto* const start = reinterpret_cast<const std::uint8_t*>(bytes.data());
    return send(CFStringCreateWithBytes(nullptr, start, static_cast<CFIndex>(bytes.size()), encoding, isExternal),
                "autorelease");
}

template <class Unit>
std::string_view bytesOf(const std::basic_string<Unit>& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(Unit)};
}

id fromUnits(std::u16string_view units) {
    return send(CFStringCreateWithCharacters(nullptr, reinterpret_cast<const UniChar*>(units.data()),
                                             static_cast<CFIndex>(units.size())),
                "autorelease");
}

std::u16string unitsOf(id string) {
    std::u16string units;
    for (CFIndex index = 0; index < CFStringGetLength(string); ++index) {
        units.push_back(send<char16_t>(string, "characterAtIndex:", static_cast<std::uintptr_t>(index)));
    }
    return units;
}

std::string encode(id string, CFStringEncoding encoding) {
    char buffer[1024];
    return CFStringGetCString(string, buffer, sizeof buffer, encoding) ? buffer : "(refused)";
}

} // namespace

TEST(Strings, ASingleByteEncodingIsReadAndWritten) {
    const Pool pool;
    EXPECT_EQ(unitsOf(decode("a\x80\xDB\xF0\xCA", macRoman)), u"a\u00C4\u20AC\uF8FF\u00A0");
    EXPECT_EQ(unitsOf(decode("a\x80\xFF", latin1)), u"a\u0080\u00FF");
    EXPECT_EQ(unitsOf(decode("a\x80\x9F\xFF", windowsLatin1)), u"a\u20AC\u0178\u00FF");
    EXPECT_EQ(encode(fromUnits(u"\u20AC"), macRoman), "\xDB");
    EXPECT_EQ(encode(fromUnits(u"\u20AC"), windowsLatin1), "\x80");
    EXPECT_EQ(encode(fromUnits(u"\u20AC"), latin1), "(refused)");
    EXPECT_EQ(encode(fromUnits(u"\u00E9"), ascii), "(refused)");

    std::string everyByte;
    for (int byte = 1; byte < 256; ++byte) {
        everyByte.push_back(static_cast<char>(byte));
    }
    for (const CFStringEncoding encoding : {macRoman, latin1}) {
        EXPECT_EQ(encode(decode(everyByte, encoding), encoding), everyByte) << encoding;
    }
}

TEST(Strings, BytesThatAreInvalidInTheirEncodingAreRefused) {
    const Pool pool;
    EXPECT_EQ(decode("\x80", ascii), nullptr);
    EXPECT_EQ(decode("\x81", windowsLatin1), nullptr);
    EXPECT_EQ(decode("abc", 0xFFFF), nullptr) << "an unknown encoding";
    for (const std::string_view malformed : {"\x80", "\xC3", "\xC3(", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80",
                                             "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "a\xFF"}) {
        EXPECT_EQ(decode(malformed, utf8), nullptr) << testing::PrintToString(malformed);
    }
    EXPECT_EQ(decode("abc", utf16), nullptr) << "an odd byte";
    EXPECT_EQ(decode(bytesOf<char16_t>({0xD83D, u'a'}), utf16), nullptr) << "an unpaired surrogate";
    EXPECT_EQ(decode("abcde", utf32), nullptr);
    EXPECT_EQ(decode(bytesOf<char32_t>({0xD800}), utf32), nullptr);
    EXPECT_EQ(decode(bytesOf<char32_t>({0x110000}), utf32), nullptr);
    EXPECT_EQ(CFStringCreateWithBytes(nullptr, nullptr, 3, utf8, 0), nullptr);
    EXPECT_EQ(CFStringCreateWithBytes(nullptr, nullptr, -1, utf8, 0), nullptr);
}

TEST(Strings, UnicodeIsTheSameTextInEveryForm) {
    const Pool pool;
    const std::u16string text = u"a\u00E9\u20AC\U0001F600z";
    EXPECT_EQ(unitsOf(decode("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z", utf8)), text);
    EXPECT_EQ(unitsOf(decode(bytesOf<char16_t>(text), utf16)), text);
    EXPECT_EQ(unitsOf(decode(bytesOf<char32_t>(U"a\u00E9\u20AC\U0001F600z"), utf32)), text);
    EXPECT_EQ(encode(fromUnits(text), utf8), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z");
    EXPECT_EQ(CFStringGetLength(fromUnits(text)), 6);
    EXPECT_EQ(CFStringGetLength(decode("", utf8)), 0);
}

TEST(Strings, AByteOrderMarkCountsOnlyInAnExternalRepresentation) {
    const Pool pool;
    EXPECT_EQ(unitsOf(decode("\xEF\xBB\xBFz", utf8, true)), u"z");
    EXPECT_EQ(unitsOf(decode("\xEF\xBB\xBFz", utf8, false)), u"\uFEFFz");
    using namespace std::string_view_literals;
    EXPECT_EQ(unitsOf(decode("\xFE\xFF\0z\xD8\x3D\xDE\0"sv, utf16, true)), u"z\U0001F600");
    EXPECT_EQ(unitsOf(decode("\xFF\xFEz\0"sv, utf16, true)), u"z");
    EXPECT_EQ(unitsOf(decode("\0\0\xFE\xFF\0\1\xF6\0"sv, utf32, true)), u"\U0001F600");
    EXPECT_EQ(unitsOf(decode("\xFF\xFE\0\0z\0\0\0"sv, utf32, true)), u"z");
    EXPECT_EQ(unitsOf(decode("\xFE\xFF"sv, utf16, true)), u"");
    EXPECT_EQ(unitsOf(decode("z\0"sv, utf16, true)), u"z") << "without a mark, the machine's order";
}

TEST(Strings, WritingNeedsRoomAndPairedSurrogates) {
    const Pool pool;
    char buffer[8] = "unread";
    EXPECT_TRUE(CFStringGetCString(fromUnits(u"\u20AC"), buffer, 4, utf8));
    EXPECT_STREQ(buffer, "\xE2\x82\xAC");
    EXPECT_FALSE(CFStringGetCString(fromUnits(u"\u20AC"), buffer, 3, utf8));
    EXPECT_STREQ(buffer, "");
    EXPECT_FALSE(CFStringGetCString(fromUnits(u""), buffer, 0, utf8));
    EXPECT_TRUE(CFStringGetCString(fromUnits(u""), buffer, 1, utf8));

    for (const std::u16string& unpaired :
         {std::u16string{0xD83D}, std::u16string{0xDE00, 0xD83D}, std::u16string{0xD83D, u'a'}}) {
        const id string = fromUnits(unpaired);
        EXPECT_EQ(unitsOf(string), unpaired) << "any units make a string";
        EXPECT_EQ(encode(string, utf8), "(refused)");
        EXPECT_EQ(send<const char*>(string, "UTF8String"), nullptr);
    }
    EXPECT_FALSE(CFStringGetCString(fromUnits(u"a"), buffer, sizeof buffer, utf16)) << "its units are no bytes";
}

TEST(Strings, ConstantsAreStringsBeforeAnythingHasRun) {
    char buffer[64];
    ASSERT_TRUE(CFStringGetCString(NSCalibratedRGBColorSpace, buffer, sizeof buffer, utf8));
    EXPECT_STREQ(buffer, "NSCalibratedRGBColorSpace");
    EXPECT_EQ(textOf(NSCustomColorSpace), "NSCustomColorSpace");
}

TEST(Strings, CompareByContents) {
    const Pool pool;
    const id first = string("abc"), same = fromUnits(u"abc"), later = string("abd");
    EXPECT_TRUE(send<BOOL>(first, "isEqual:", same));
    EXPECT_TRUE(send<BOOL>(first, "isEqualToString:", same));
    EXPECT_EQ(send<std::uintptr_t>(first, "hash"), send<std::uintptr_t>(same, "hash"));
    EXPECT_FALSE(send<BOOL>(first, "isEqual:", later));
    EXPECT_FALSE(send<BOOL>(first, "isEqual:", calibratedRGB(0, 0, 0)));
    EXPECT_EQ(send<std::intptr_t>(first, "compare:", later), -1);
    EXPECT_EQ(send<std::intptr_t>(later, "compare:", first), 1);
    EXPECT_EQ(send<std::intptr_t>(first, "compare:", same), 0);
    EXPECT_TRUE(raises("NSRangeException", [&] { send<char16_t>(first, "characterAtIndex:", std::uintptr_t{3}); }));
    EXPECT_TRUE(
        raises("NSInvalidArgumentException", [&] { send<BOOL>(first, "isEqualToString:", calibratedRGB(0, 0, 0)); }));
}

// Strings in both directions, in every encoding, on hosts of every age.
#include "support/plugin_test.h"

#include "bridge/strings.h"
#include "runtime/host_version.h"

using namespace chroma;

namespace {

// Text as a host stores it: bytes and encoding.
using Stored = std::pair<std::string, std::uint32_t>;

// UTF-16 or UTF-32 bytes in machine order.
template <class Unit>
std::string units(const std::basic_string<Unit>& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(Unit)};
}

std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    while (count-- > 0)
        result += text;
    return result;
}

const char* const emoji = "\xF0\x9F\x98\x80";
const Stored wide16(units<char16_t>(u"\u00FC\U0001F600"), foreign::kUTF16);
const Stored wide32(units<char32_t>(U"\u00FC\U0001F600"), foreign::kUTF32);
const std::string wideUTF8 = std::string("\xC3\xBC") + emoji;

// The plugin's string for a host string, as UTF-8; "(null)" for null.
std::string toPlatform(const Stored& stored) {
    const foreign::Owned hostString(foreign::string(stored.first, stored.second));
    const CFStringRef text = RBString2CFString(hostString);
    EXPECT_EQ(foreign::references(hostString), 1);
    if (!text) return "(null)";
    const std::string result = native::textOf(text);
    CFRelease(text);
    return result;
}

// The host's string for a platform string, and for bytes; the empty one is null.
Stored toHost(id text) {
    const foreign::Owned result(NSStringRB(text));
    CFRelease(text);
    return {foreign::bytesOf(result), foreign::encodingOf(result)};
}
Stored built(const std::string& bytes, CFStringEncoding encoding) {
    const foreign::Owned result(REALBuildUnicodeString(bytes.data(), static_cast<std::int64_t>(bytes.size()), encoding));
    return {foreign::bytesOf(result), foreign::encodingOf(result)};
}
const Stored nothing("", 0);
Stored utf8(const std::string& text) { return {text, foreign::kUTF8}; }

} // namespace

class Strings : public PluginTest {};

TEST_F(Strings, FromTheHostAreReadInTheirEncodingByItOrFromItsStorage) {
    const std::pair<Stored, std::string> texts[] = {
        {{"Gr\xC3\xBCn", foreign::kUTF8}, "Gr\xC3\xBCn"},
        {{"Gr\xFCn", foreign::kLatin1}, "Gr\xC3\xBCn"},
        {{"\x80", kCFStringEncodingWindowsLatin1}, "\xE2\x82\xAC"},
        {{"Gr\x9Fn", foreign::kMacRoman}, "Gr\xC3\xBCn"},
        {{"plain", foreign::kASCII}, "plain"},
        {wide16, wideUTF8},
        {wide32, wideUTF8},
        {{"Gr\x9Fn", foreign::kUnknown}, "Gr\xC3\xBCn"},
        {{"\xC3", foreign::kUTF8}, "(null)"},
        {{"abc", 0x0BADBAD}, "(null)"},
    };
    for (const bool hostAnswers : {true, false})
        for (const double version : {2011.0, 2012.0, 2021.0}) {
            host.givesCFStrings = hostAnswers;
            start(version);
            for (const auto& [stored, expected] : texts)
                EXPECT_EQ(toPlatform(stored), expected) << version << ' ' << stored.second << ' ' << hostAnswers;
        }
    EXPECT_EQ(RBString2CFString(nullptr), nullptr);

    // Of storage alone: long, not of whole units, empty, marked in its byte order.
    EXPECT_EQ(toPlatform({units(std::u16string(1000, u'x')), foreign::kUTF16}), std::string(1000, 'x'));
    EXPECT_EQ(toPlatform({units<char16_t>(u"ab") + "c", foreign::kUTF16}), "ab");
    EXPECT_EQ(toPlatform(utf8("")), "");
    EXPECT_EQ(toPlatform(utf8("\xEF\xBB\xBFz")), "z");
}

TEST_F(Strings, AHostWithoutEncodingsIsReadAsMacRoman) {
    host.missing = {"REALGetStringEncoding", "REALGetStringCFString"};
    start();
    EXPECT_EQ(toPlatform(utf8("\x9F")), "\xC3\xBC");
}

TEST_F(Strings, OnlyNewerHostsAreAskedThroughTheCopyingWrapper) {
    start(2011.0);
    host.givesCFStrings = false;
    toPlatform(utf8("x"));
    EXPECT_EQ(host.asked["REALGetStringCFString"], 1);
    rbversion_rbversion = 2012.0;
    toPlatform(utf8("x"));
    EXPECT_EQ(host.asked["REALGetStringCFString"], 2); // the copying wrapper's own first look-up
}

TEST_F(Strings, FromThePlatformKeepEveryLength) {
    for (const double version : {2011.0, 2021.0}) {
        start(version);
        EXPECT_EQ(toHost(native::string("")), nothing);
        for (const std::size_t length : {1U, 99U, 100U, 5000U})
            for (const std::string& text : {repeated("x", length), repeated("\xE2\x82\xAC", length)})
                EXPECT_EQ(toHost(native::string(text)), utf8(text));
    }
    EXPECT_EQ(NSStringRB(nullptr), nullptr);
}

TEST_F(Strings, OfUnpairedSurrogatesOrWithoutMemoryAreEmpty) {
    start(2011.0);
    for (const std::size_t length : {0U, 200U}) {
        const std::u16string text = std::u16string(length, u'x') + char16_t{0xD800};
        EXPECT_EQ(toHost(CFStringCreateWithCharacters(nullptr, reinterpret_cast<const UniChar*>(text.data()),
                                                      static_cast<CFIndex>(text.size()))),
                  nothing);
    }
    const id longText = native::string(repeated("x", 200));
    failAllocation(1);
    EXPECT_EQ(toHost(longText), nothing);
    EXPECT_TRUE(failAllocation(1));
    EXPECT_EQ(built(units(std::u32string(1000, U'x')), kCFStringEncodingUTF32), nothing);
    EXPECT_TRUE(failAllocation(0));
}

TEST_F(Strings, OfSingleBytesAreTaggedASCIIWhenTheyAre) {
    start();
    for (const CFStringEncoding encoding :
         {kCFStringEncodingMacRoman, kCFStringEncodingISOLatin1, kCFStringEncodingWindowsLatin1, kUnknownEncoding}) {
        EXPECT_EQ(built("plain", encoding), Stored("plain", foreign::kASCII));
        EXPECT_EQ(built("Gr\xFCn", encoding), Stored("Gr\xFCn", encoding));
    }
    EXPECT_EQ(built("plain", kCFStringEncodingUTF8), utf8("plain"));
}

TEST_F(Strings, OfWideUnitsEndAsUTF8) {
    for (const double version : {2011.0, 2012.0, 2012.9, 2013.0, 2021.0}) {
        start(version);
        EXPECT_EQ(built(wide16.first, wide16.second), utf8(wideUTF8)) << version;
        EXPECT_EQ(built(wide32.first, wide32.second), utf8(wideUTF8)) << version;
    }
    start(2012.9); // does not know UTF-32
    const auto fromUTF32 = [](const std::u32string& text) { return built(units(text) + "123", kCFStringEncodingUTF32); };
    EXPECT_EQ(fromUTF32({0x110000, U'a', 0xD800, 0xDFFF, U'b', 0x10FFFF}), utf8("\xEF\xBF\xBD"
                                                                                "ab"
                                                                                "\xF4\x8F\xBF\xBF"));
    EXPECT_EQ(fromUTF32({0xD800}), nothing);
    EXPECT_EQ(fromUTF32(std::u32string(500, 0x1F600)), utf8(repeated(emoji, 500)));
}

TEST_F(Strings, OfNoBytesOrTooManyAreRefused) {
    start();
    for (const std::int64_t length : {INT64_C(0), INT64_C(-1), INT64_C(2147483648)})
        EXPECT_EQ(REALBuildUnicodeString("x", length, kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(REALBuildUnicodeString(nullptr, 5, kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(REALBuildUnicodeStringUTF16("x", 0), nullptr);
}

TEST_F(Strings, OfWideUnitsAreEmptyWithoutTheHostsConversion) {
    host.missing = {"REALConvertString", "REALSetStringEncoding"};
    for (const double version : {2011.0, 2021.0}) {
        start(version);
        for (const Stored& wide : {wide16, wide32})
            EXPECT_EQ(built(wide.first, wide.second), nothing);
    }
    EXPECT_EQ(built("x", kCFStringEncodingUTF8), Stored("x", foreign::kUnknown));
}

TEST_F(Strings, OfEveryKindAreEmptyWithoutTheHostsBuilders) {
    host.missing = {"REALBuildString", "REALBuildStringWithEncoding"};
    for (const double version : {2011.0, 2021.0}) {
        start(version);
        for (const Stored& text : {utf8("x"), Stored("x", foreign::kLatin1), wide16, wide32})
            EXPECT_EQ(built(text.first, text.second), nothing);
    }
}

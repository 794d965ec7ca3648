// Strings in both directions, in every encoding, on hosts of every age.
#include "support/plugin_test.h"

#include "bridge/strings.h"
#include "runtime/host_version.h"

#include <stdexcept>

using namespace chroma;
using foreign::Host;

class Strings : public PluginTest {
protected:
    // What the plugin makes of a host string, as UTF-8; "(null)" for null. Gives the string up.
    std::string toPlatform(REALstringStruct* hostString) {
        const CFStringRef text = RBString2CFString(hostString);
        EXPECT_EQ(hostString ? foreign::references(hostString) : 1, 1);
        if (hostString) foreign::unlock(hostString);
        if (!text) return "(null)";
        const std::string result = native::textOf(text);
        CFRelease(text);
        return result;
    }

    std::string toHost(const std::string& utf8) {
        const id text = native::string(utf8);
        REALstringStruct* const result = NSStringRB(text);
        CFRelease(text);
        EXPECT_EQ(result ? foreign::encodingOf(result) : foreign::kUTF8, foreign::kUTF8);
        return foreign::take(result);
    }
};

// UTF-16 or UTF-32 bytes in machine order.
template <class Unit>
std::string units(std::basic_string<Unit> text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(Unit)};
}

struct Stored {
    std::string bytes;
    std::uint32_t encoding;
    std::string utf8;
};

const Stored storedTexts[] = {
    {"Gr\xC3\xBCn", foreign::kUTF8, "Gr\xC3\xBCn"},
    {"Gr\xFCn", foreign::kLatin1, "Gr\xC3\xBCn"},
    {"\x80", kCFStringEncodingWindowsLatin1, "\xE2\x82\xAC"},
    {"Gr\x9Fn", foreign::kMacRoman, "Gr\xC3\xBCn"},
    {"plain", foreign::kASCII, "plain"},
    {units<char16_t>(u"\u00FC\U0001F600"), foreign::kUTF16, "\xC3\xBC\xF0\x9F\x98\x80"},
    {units<char32_t>(U"\u00FC\U0001F600"), foreign::kUTF32, "\xC3\xBC\xF0\x9F\x98\x80"},
    {"Gr\x9Fn", foreign::kUnknown, "Gr\xC3\xBCn"},
    {"\xC3", foreign::kUTF8, "(null)"},
    {"abc", 0x0BADBAD, "(null)"},
};

TEST_F(Strings, HostToPlatformAsksTheHost) {
    for (const double version : {2011.0, 2012.0, 2021.0}) {
        host.asked.clear();
        start(version);
        for (const auto& text : storedTexts)
            EXPECT_EQ(toPlatform(foreign::string(text.bytes, text.encoding)), text.utf8) << version << ' ' << text.encoding;
    }
    EXPECT_EQ(toPlatform(nullptr), "(null)");
}

TEST_F(Strings, HostToPlatformReadsStorageWhereTheHostDoesNotAnswer) {
    start();
    host.givesCFStrings = false;
    for (const auto& text : storedTexts)
        EXPECT_EQ(toPlatform(foreign::string(text.bytes, text.encoding)), text.utf8) << text.encoding;
    const std::string longText(1000, 'x');
    const std::u16string long16(1000, u'x');
    EXPECT_EQ(toPlatform(foreign::string(units(long16), foreign::kUTF16)), longText);
    EXPECT_EQ(toPlatform(foreign::string(units<char16_t>(u"ab") + "c", foreign::kUTF16)), "ab");
    EXPECT_EQ(toPlatform(foreign::string("", foreign::kUTF8)), "");
    EXPECT_EQ(toPlatform(foreign::string("\xEF\xBB\xBFz", foreign::kUTF8)), "z"); // an external representation
}

TEST_F(Strings, HostWithoutEncodingsReadsAsMacRoman) {
    host.missing = {"REALGetStringEncoding", "REALGetStringCFString"};
    start();
    EXPECT_EQ(toPlatform(foreign::string("\x9F", foreign::kUTF8)), "\xC3\xBC");
}

TEST_F(Strings, OnlyNewerHostsAreAskedThroughTheCopyingWrapper) {
    start(2011.0);
    host.givesCFStrings = false;
    toPlatform(foreign::string("x"));
    EXPECT_EQ(host.asked["REALGetStringCFString"], 1);
    host.asked.clear();
    rbversion_rbversion = 2012.0;
    toPlatform(foreign::string("x"));
    EXPECT_EQ(host.asked["REALGetStringCFString"], 1); // the copying wrapper's own first look-up
}

TEST_F(Strings, NativeExceptionsLeaveNothingBehind) {
    start();
    host.givesCFStrings = false;
    const id object = native::string("thrown");
    REALstringStruct* const stored = foreign::string("x");
    throwFromNextStringCall(object);
    auto toPlatformString = [&] { RBString2CFString(stored); };
    EXPECT_EQ(catchNative(toPlatformString), object);
    EXPECT_EQ(foreign::references(stored), 1);
    foreign::unlock(stored);

    const id text = native::string(std::string(200, 'x')); // long enough for a heap buffer
    throwFromNextStringCall(object);
    auto toHostString = [&] { NSStringRB(text); };
    EXPECT_EQ(catchNative(toHostString), object);
    CFRelease(text);
    CFRelease(object);
}

TEST_F(Strings, PlatformToHostKeepsEveryLength) {
    for (const double version : {2011.0, 2021.0}) {
        start(version);
        EXPECT_EQ(toHost(""), "");
        for (const std::size_t length : {1U, 99U, 100U, 5000U}) {
            EXPECT_EQ(toHost(std::string(length, 'x')), std::string(length, 'x'));
            std::string wide;
            for (std::size_t i = 0; i < length; ++i)
                wide += "\xE2\x82\xAC";
            EXPECT_EQ(toHost(wide), wide);
        }
    }
    EXPECT_EQ(NSStringRB(nullptr), nullptr);
}

TEST_F(Strings, TextThatIsNotUnicodeGivesTheEmptyString) {
    start();
    for (const std::size_t length : {1U, 200U}) {
        std::u16string text(length, u'x');
        text.back() = 0xD800;
        const id unpaired = CFStringCreateWithCharacters(nullptr, reinterpret_cast<const UniChar*>(text.data()),
                                                         static_cast<CFIndex>(length));
        EXPECT_EQ(NSStringRB(unpaired), nullptr);
        CFRelease(unpaired);
    }
}

TEST_F(Strings, ExhaustedMemoryGivesTheEmptyString) {
    start(2011.0);
    const id text = native::string(std::string(200, 'x'));
    failAllocation(1);
    EXPECT_EQ(NSStringRB(text), nullptr);
    EXPECT_TRUE(failAllocation(0));
    CFRelease(text);

    const std::u32string many(1000, U'x');
    failAllocation(1);
    EXPECT_EQ(REALBuildUnicodeString(many.data(), 4000, kCFStringEncodingUTF32), nullptr);
    EXPECT_TRUE(failAllocation(0));
}

// Builds and gives up; the encoding that the host recorded goes to `encoding`.
std::string built(const std::string& bytes, CFStringEncoding encoding, std::uint32_t* recorded = nullptr) {
    REALstringStruct* const string = REALBuildUnicodeString(bytes.data(), static_cast<std::int64_t>(bytes.size()), encoding);
    if (recorded) *recorded = foreign::encodingOf(string);
    return foreign::take(string);
}

TEST_F(Strings, SingleByteTextIsTaggedASCIIWhenItIs) {
    start();
    for (const CFStringEncoding encoding :
         {kCFStringEncodingMacRoman, kCFStringEncodingISOLatin1, kCFStringEncodingWindowsLatin1, kUnknownEncoding}) {
        std::uint32_t recorded = 0;
        EXPECT_EQ(built("plain", encoding, &recorded), "plain");
        EXPECT_EQ(recorded, foreign::kASCII);
        EXPECT_EQ(built("Gr\xFCn", encoding, &recorded), "Gr\xFCn");
        EXPECT_EQ(recorded, encoding);
    }
    std::uint32_t recorded = 0;
    EXPECT_EQ(built("plain", kCFStringEncodingUTF8, &recorded), "plain");
    EXPECT_EQ(recorded, foreign::kUTF8);
}

TEST_F(Strings, WideTextEndsAsUTF8OnEveryHost) {
    const std::string emoji = "\xC3\xBC\xF0\x9F\x98\x80";
    for (const double version : {2011.0, 2012.0, 2013.0, 2021.0}) {
        start(version);
        for (const auto& wide : {storedTexts[5], storedTexts[6]}) {
            std::uint32_t recorded = 0;
            EXPECT_EQ(built(wide.bytes, wide.encoding, &recorded), emoji) << version;
            EXPECT_EQ(recorded, foreign::kUTF8);
        }
    }
}

TEST_F(Strings, OldHostsGetUTF32Translated) {
    start(2012.9);
    const auto fromUTF32 = [](std::u32string text) { return built(units(text), kCFStringEncodingUTF32); };
    EXPECT_EQ(fromUTF32({0x110000, U'a', 0xD800, 0xDFFF, U'b', 0x10FFFF}), "\xEF\xBF\xBD"
                                                                           "ab"
                                                                           "\xF4\x8F\xBF\xBF");
    EXPECT_EQ(fromUTF32({0xD800}), "");
    EXPECT_EQ(built(units<char32_t>(U"a") + "123", kCFStringEncodingUTF32), "a");
    std::string emojis;
    for (int i = 0; i < 500; ++i)
        emojis += "\xF0\x9F\x98\x80";
    EXPECT_EQ(fromUTF32(std::u32string(500, 0x1F600)), emojis);
}

TEST_F(Strings, RefusesWhatIsNoText) {
    start();
    EXPECT_EQ(REALBuildUnicodeString(nullptr, 5, kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(REALBuildUnicodeString("x", 0, kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(REALBuildUnicodeString("x", -1, kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(REALBuildUnicodeString("x", INT64_C(2147483648), kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(REALBuildUnicodeStringUTF16("x", 0), nullptr);
}

TEST_F(Strings, WithoutConversionWideTextIsEmpty) {
    host.missing = {"REALConvertString", "REALSetStringEncoding"};
    const std::string wide = units<char16_t>(u"ab");
    for (const double version : {2011.0, 2021.0}) {
        start(version);
        EXPECT_EQ(built(wide, kCFStringEncodingUnicode), "");
        EXPECT_EQ(built(units<char32_t>(U"ab"), kCFStringEncodingUTF32), "");
    }
    std::uint32_t recorded = 0;
    EXPECT_EQ(built("x", kCFStringEncodingUTF8, &recorded), "x");
    EXPECT_EQ(recorded, foreign::kUnknown);
}

TEST_F(Strings, WithoutBuildersEverythingIsEmpty) {
    host.missing = {"REALBuildString", "REALBuildStringWithEncoding"};
    for (const double version : {2011.0, 2021.0}) {
        start(version);
        for (const auto& text : storedTexts)
            EXPECT_EQ(built(text.bytes, text.encoding), "");
    }
}

// The bridge's conversions: strings, memory blocks, arrays, and failures of every kind.
#include "support/plugin_test.h"

#include "bridge/arrays.h"
#include "bridge/data.h"
#include "bridge/errors.h"
#include "bridge/frame.h"
#include "bridge/strings.h"
#include "classes/color/color_shared.h"
#include "runtime/host_entries.h"

#if defined(CHROMA_SLICE)
#include "builtin/introspection.h"
#endif

#include <cstdint>
#include <exception>
#include <new>
#include <stdexcept>
#include <typeinfo>

using namespace chroma;
using foreign::Owned;

namespace {

// Text as a host stores it: bytes and encoding.
using Stored = std::pair<std::string, std::uint32_t>;

// Returns UTF-16 or UTF-32 bytes in machine order.
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
const Stored wide16(units<char16_t>(u"\u00FC\U0001F600"), REALencodingUTF16);
const Stored wide32(units<char32_t>(U"\u00FC\U0001F600"), REALencodingUTF32);
// A value beyond Unicode, values around the surrogates, the first and the last surrogate pair, and surplus bytes.
const Stored odd32(units<char32_t>({0x110000, 0xD7FF, 0xD800, 0xDFFF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF}) + "123",
                   REALencodingUTF32);
const std::string wideUTF8 = std::string("\xC3\xBC") + emoji;

// Returns the plugin's string for a host string as UTF-8, or "(null)" for null.
std::string toPlatform(const Stored& stored) {
    const foreign::Owned hostString(foreign::string(stored.first, stored.second));
    const CFStringRef text = RBString2CFString(hostString);
    EXPECT_EQ(foreign::references(hostString), 1);
    if (!text) return "(null)";
    const std::string result = native::textOf(text);
    CFRelease(text);
    return result;
}

// Return the host's string for a platform string, and for bytes. The empty string is null.
Stored toHost(id text) {
    const foreign::Owned result(NSStringRB(text));
    return {foreign::bytesOf(result), foreign::encodingOf(result)};
}
Stored built(const std::string& bytes, CFStringEncoding encoding) {
    const auto length = static_cast<std::int64_t>(bytes.size());
    const foreign::Owned result(REALBuildUnicodeString((bytes + "\xFF").data(), length, encoding)); // the rest is not read
    return {foreign::bytesOf(result), foreign::encodingOf(result)};
}
const Stored nothing("", 0);
Stored utf8(const std::string& text) { return {text, REALencodingUTF8}; }

} // namespace

class Strings : public PluginTest {
protected:
    Strings() { start(); }
};

TEST_F(Strings, DecodeHostStringsInEveryEncoding) {
    const std::pair<Stored, std::string> texts[] = {
        {{"Gr\xC3\xBCn", REALencodingUTF8}, "Gr\xC3\xBCn"},
        {{"\x80", kCFStringEncodingWindowsLatin1}, "\xE2\x82\xAC"},
        {{"Gr\x9Fn", REALencodingMacRoman}, "Gr\xC3\xBCn"},
        {wide16, wideUTF8},
        {wide32, wideUTF8},
        {{"Gr\x9Fn", REALencodingUnknown}, "Gr\xC3\xBCn"},
        {{"\xC3", REALencodingUTF8}, "(null)"},
        {{"abc", 0x0BADBAD}, "(null)"},
    };
    for (const double version : {2011.0, 2021.0}) {
        become(version);
        for (const bool hostConverts : {true, false}) {
            host.before["REALGetStringCFString"] = [=] { return !hostConverts; };
            for (const auto& [stored, expected] : texts)
                EXPECT_EQ(toPlatform(stored), expected) << version << ' ' << stored.second << ' ' << hostConverts;
        }
    }
    EXPECT_EQ(RBString2CFString(nullptr), nullptr);

    // Texts read from storage only: long, with an incomplete unit, empty, with a byte order mark.
    for (const std::size_t length : {128U, 129U, 1000U})
        EXPECT_EQ(toPlatform({units(std::u16string(length, u'x')), REALencodingUTF16}), std::string(length, 'x'));
    EXPECT_EQ(toPlatform({units<char16_t>(u"ab") + "c", REALencodingUTF16}), "ab");
    EXPECT_EQ(toPlatform(utf8("")), "");
    EXPECT_EQ(toPlatform(utf8("\xEF\xBB\xBFz")), "z");
}

// The host converts the text. If it returns null, the plugin reads the storage. From 2012 on it tries two uses of the same
// entry, one after the other. Text of unknown encoding is always read from the storage.
TEST_F(Strings, UseTheReadingEntriesOfTheHostVersion) {
    const auto entriesUsed = [&](double version, std::uint32_t encoding, bool hostConverts) {
        become(version);
        host.before["REALGetStringCFString"] = [=] { return !hostConverts; };
        const Owned text(foreign::string("x", encoding));
        return traceOf([&] { CFRelease(RBString2CFString(text)); });
    };
    const std::string encoding = "REALGetStringEncoding", convert = " REALGetStringCFString(0)",
                      storage = " REALLockString REALUnlockString";
    EXPECT_EQ(entriesUsed(2011.0, REALencodingUTF8, true), encoding + convert);
    EXPECT_EQ(entriesUsed(2011.0, REALencodingUTF8, false), encoding + convert + storage);
    EXPECT_EQ(entriesUsed(2012.0, REALencodingUTF8, true), encoding + convert);
    EXPECT_EQ(entriesUsed(2012.0, REALencodingUTF8, false), encoding + convert + convert + storage);
    EXPECT_EQ(entriesUsed(2021.0, REALencodingUnknown, true), encoding + storage);
}

// Each row has the calls of the host in order, with the sizes in bytes and the encodings: 0x100 is UTF-16, 0x8000100 UTF-8
// and 0xc000100 UTF-32. Before 2012 the plugin builds a string and then sets its encoding. UTF-16 and UTF-32 are converted.
TEST_F(Strings, UseTheBuildingEntriesOfTheHostVersion) {
    const std::string old = "REALBuildString", with = old + "WithEncoding", convert = " REALConvertString(0x8000100)",
                      unlock = " REALUnlockString";
    const auto tag = [](const char* encoding) { return std::string(" REALSetStringEncoding(") + encoding + ")"; };
    const struct {
        double version;
        Stored text, expected;
        std::string trace;
        const char* refused = ""; // the entry point that does nothing in this case
    } builds[] = {
        {2021.0, utf8("plain"), utf8("plain"), old + "(5)" + tag("0x8000100")},
        {2011.0, wide16, utf8(wideUTF8), old + "(6)" + tag("0x100") + convert + unlock},
        {2012.0, wide16, utf8(wideUTF8), with + "(6, 0x100)" + convert + unlock},
        {2011.0, wide32, utf8(wideUTF8), old + "(6)" + tag("0x100") + convert + unlock},
        {2012.9, wide32, utf8(wideUTF8), with + "(6, 0x100)" + convert + unlock}, // this version does not know UTF-32
        {2013.0, wide32, utf8(wideUTF8), with + "(8, 0xc000100)" + convert + unlock},
        {2011.0, odd32, utf8("\xEF\xBF\xBD\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
         old + "(16)" + tag("0x100") + convert + unlock},
        {2011.0, {units<char32_t>({0xD800}), REALencodingUTF32}, nothing, ""}, // a lone surrogate leaves nothing
        {2011.0, utf8("x"), nothing, old + "(1)", "REALBuildString"},
        {2011.0, wide16, nothing, old + "(6)", "REALBuildString"},
        // On newer hosts, conversion is called even if building returned null.
        {2012.0, wide16, nothing, with + "(6, 0x100)" + convert, "REALBuildStringWithEncoding"},
        {2013.0, wide32, nothing, with + "(8, 0xc000100)" + convert, "REALBuildStringWithEncoding"},
        {2021.0, wide32, nothing, with + "(8, 0xc000100)" + convert + unlock, "REALConvertString"},
    };
    for (const auto& build : builds) {
        host.before = {{build.refused, [] { return true; }}};
        become(build.version);
        Stored result;
        const std::string trace = traceOf([&] { result = built(build.text.first, build.text.second); });
        EXPECT_EQ(result, build.expected) << build.version << ' ' << build.trace;
        EXPECT_EQ(trace, build.trace) << build.version;
    }
    // Nothing leaks if the host throws, once in each conversion.
    for (const char* const entry : {"REALSetStringEncoding", "REALConvertString", "REALUnlockString"}) {
        for (const auto& build : builds) {
            bool throws = true;
            host.before = {{entry, [&] { return std::exchange(throws, false) ? throw std::runtime_error("once") : false; }}};
            become(build.version);
            built(build.text.first, build.text.second);
            EXPECT_EQ(foreign::Host::liveStrings(), 0) << entry << ' ' << build.version;
        }
    }
    host.before.clear();
    EXPECT_GT(host.takeRaised().size(), 20U);
    for (const auto encoding : {REALencodingMacRoman, REALencodingLatin1, REALencodingWindowsLatin1, REALencodingUnknown}) {
        EXPECT_EQ(built("plain", encoding), Stored("plain", REALencodingASCII));
        for (const char* const text : {"Gr\xFC", "\xFCr"})
            EXPECT_EQ(built(text, encoding), Stored(text, encoding));
    }
    for (const std::int64_t length : {INT64_C(0), INT64_C(-1), INT64_C(2147483648)})
        EXPECT_EQ(REALBuildUnicodeString("x", length, kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(REALBuildUnicodeString(nullptr, 5, kCFStringEncodingUTF8), nullptr);
    become(2012.9);
    EXPECT_EQ(built(units(std::u32string(500, 0x1F600)), REALencodingUTF32), utf8(repeated(emoji, 500)));
}

TEST_F(Strings, ConvertPlatformStringsOfEveryLength) {
    for (const double version : {2011.0, 2021.0}) {
        become(version);
        EXPECT_EQ(toHost(native::string("")), nothing);
        for (const std::size_t length : {1U, 99U, 100U, 5000U})
            for (const std::string& text : {repeated("x", length), repeated("\xE2\x82\xAC", length)})
                EXPECT_EQ(toHost(native::string(text)), utf8(text));
    }
    EXPECT_EQ(NSStringRB(nullptr), nullptr);
}

TEST_F(Strings, AllocateMemoryOnlyForLongText) {
    host.before["REALGetStringCFString"] = [] { return true; };
    become(2012.0);
    for (const bool isLong : {false, true}) {
        const auto expectIn = [&](const Stored& expected, auto convert) {
            failAllocation(1);
            EXPECT_EQ(convert(), isLong ? nothing : expected);
            EXPECT_EQ(failAllocation(0), isLong);
        };
        const std::string text(isLong ? 100 : 99, 'x');
        const id native = native::string(text);
        expectIn(utf8(text), [&] { return toHost(native); });
        const std::string wide = units(std::u32string(isLong ? 65 : 64, U'x'));
        expectIn(utf8(std::string(64, 'x')), [&] { return built(wide, REALencodingUTF32); });
        failAllocation(isLong ? 1 : 0);
        EXPECT_EQ(toPlatform({units(std::u16string(129, u'x')), REALencodingUTF16}) == "(null)", isLong);
    }
}

class Data : public PluginTest, public ::testing::WithParamInterface<double> {
protected:
    Data() { start(GetParam()); }
    static id dataOf(const std::string& bytes) {
        const Owned block(foreign::block(bytes));
        return NewNSData(block);
    }
};
INSTANTIATE_TEST_SUITE_P(Hosts, Data, ::testing::Values(2011.0, 2016.9, 2017.0, 2021.0));

TEST_P(Data, CopiesMemoryBlocksInBothDirections) {
    const std::string bytes("a\0c", 3);
    const id data = dataOf(bytes);
    EXPECT_EQ(std::string(native::send<const char*>(data, "bytes"), native::send<NSUInteger>(data, "length")), bytes);
    const Owned copy(NSDataRB(data));
    EXPECT_EQ(foreign::bytesOf(copy), bytes);

    EXPECT_EQ(dataOf(""), nullptr);
    EXPECT_EQ(NewNSData(Owned(foreign::block("abc", -3))), nullptr);
    EXPECT_EQ(NSDataRB(native::sendClass("NSData", "data")), nullptr);
    host.showsStorage = false;
    EXPECT_EQ(dataOf("abc"), nullptr);
}

TEST_P(Data, RaisesIfNoMemoryBlockIsCreated) {
    const id data = dataOf("abc");
    static NSUInteger length = 2147483647;
    native::replace(
        native::object_getClass(data), "length", +[](id, SEL) { return length; });
    EXPECT_EQ(NSDataRB(data), nullptr);
    expectRaised({{"OutOfMemoryException", "Failed to allocate a memoryblock with 2147483647 bytes in size.", 0}});
    EXPECT_EQ(host.lookUps["newMemoryBlock"], 0);
    length = 3;
    host.missing = {"newMemoryBlock"};
    EXPECT_EQ(NSDataRB(data), nullptr);
    bool exhausted = true; // once also while the failure is reported
    host.before["PluginNewInstance"] = [&] { return std::exchange(exhausted, false) ? throw std::bad_alloc() : false; };
    EXPECT_EQ(NSDataRB(data), nullptr);
    host.missing.clear();
    host.before["newMemoryBlock"] = []() -> bool { throw std::bad_alloc(); };
    EXPECT_EQ(NSDataRB(data), nullptr);
    host.before["newMemoryBlock"] = []() -> bool { throw std::length_error("thrown by the host"); };
    EXPECT_THROW(NSDataRB(data), std::length_error);
    host.before.clear();
    host.showsStorage = false;
    EXPECT_EQ(NSDataRB(data), nullptr);
    const Raised refusal{"OutOfMemoryException", "Failed to allocate a memoryblock with 3 bytes in size.", 0};
    expectRaised({refusal, refusal, refusal, refusal});
    host.showsStorage = true;
    host.before["memoryBlockGetPtr"] = []() -> bool { throw std::length_error("thrown by the host"); };
    if (GetParam() >= 2017.0) {
        EXPECT_THROW(NSDataRB(data), std::length_error);
    }

    length = static_cast<NSUInteger>(UINT64_C(0x80000000));
    EXPECT_EQ(NSDataRB(data), nullptr);
    length = static_cast<NSUInteger>(UINT64_C(0x100000003));
    if (length == 3) return;
    EXPECT_EQ(NSDataRB(data), nullptr);
    expectRaised({{"OutOfMemoryException", "Failed to allocate a memoryblock with 4294967299 bytes in size.", 0}});
}

TEST_P(Data, ArraysUseTheEntriesOfTheHostVersionOrTheStorage) {
    const bool isOld = GetParam() < 2013.0, isShown = GetParam() < 2017.0;
    const std::string getter = isOld ? "RuntimeArrayDirectGetGetProc" : "PluginDoubleArrayGetProc";
    const std::string inserter = isOld ? "RuntimeArrayDirectGetInsertProc" : "PluginDoubleArrayInsertProc";
    auto* const array = static_cast<REALarrayDouble*>(REALCreateArray(REALarrayOfDoubles, -1));
    EXPECT_EQ(REALGetArrayUBound(array), -1);
    host.before[inserter] = [] { return true; }; // the host has no procedure for this array
    REALInsertArrayValueDouble(array, 0, 9.0);
    host.before.clear();
    EXPECT_EQ(traceOf([&] { REALInsertArrayValueDouble(array, 0, 0.0); }), inserter);
    for (const int i : {1, 2})
        REALInsertArrayValueDouble(array, i, 0.5 * i);
    EXPECT_EQ(REALGetArrayUBound(array), 2);
    const auto element = [&](std::int32_t index) { return REALGetArrayValueDouble(array, index); };
    double last = 0.0;
    EXPECT_EQ(traceOf([&] { last = element(2); }), "RuntimeUBound" + (isShown ? "" : " " + getter));
    EXPECT_EQ(last, 1.0);
    host.before[getter] = [] { return true; };
    EXPECT_EQ(element(1), isShown ? 0.5 : 0.0);
    host.before.clear();
    host.showsStorage = false;
    EXPECT_EQ(REALGetArrayValueDouble(Owned(foreign::doubles({0.0, 0.25})), 1), 0.25);

    EXPECT_EQ(element(3), 0.0);
    EXPECT_EQ(element(-1), 0.0);
    expectRaised({{"OutOfBoundsException", "Parameter index  is too big. Range is 0 to 2, but value is 3.", 0},
                  {"OutOfBoundsException", "Parameter index  is too small. Range is 0 to 2, but value is -1.", 0}});
    EXPECT_EQ(foreign::take(array), (std::vector<double>{0.0, 0.5, 1.0}));
    EXPECT_EQ(REALGetArrayUBound(nullptr), -1);
    EXPECT_EQ(REALGetArrayValueDouble(nullptr, 0), 0.0);
    REALInsertArrayValueDouble(nullptr, 0, 1.0);
    REALInsertArrayValueObject(nullptr, 0, nullptr);
}

template <class Base>
struct CastAnd : std::bad_cast, Base {
    CastAnd() : Base("h") {}
};

class Errors : public PluginTest {
protected:
    Errors() { start(); }
};

TEST_F(Errors, CarryMessageAndErrorNumber) {
    EXPECT_EQ(traceOf([] { RaiseException("OutOfBoundsException", "Gr\xC3\xBCn"); }),
              "REALBuildString(5) REALSetStringEncoding(0x8000100) PluginNewInstance(OutOfBoundsException) "
              "REALSetPropValueString(Message) REALSetPropValueInteger(ErrorNumber, 0) RuntimeRaiseException "
              "REALUnlockObject REALUnlockString");
    RaiseException("NoSuchException", "why");
    RaiseException("RuntimeException", nullptr);
    expectRaised({{"OutOfBoundsException", "Gr\xC3\xBCn", 0}, {"RuntimeException", "why", 0}, {"RuntimeException", "", 0}});
    host.plainClasses.clear();
    RaiseException("OutOfBoundsException", "dropped");
}

TEST_F(Errors, DescribeTheValidRange) {
    const auto expectMessage = [&](const std::string& message, std::int64_t value, std::int64_t minimum, std::int64_t limit,
                                   const char* name, const char* method) {
        RaiseOutOfBoundsException(value, minimum, limit, name, method);
        expectRaised({{"OutOfBoundsException", message, 0}});
    };
    expectMessage("Parameter values to method m is too big. Range is 1 to 19, but value is 20.", 20, 1, 20, "values", "m");
    expectMessage("Parameter values to method m is too small. Range is 1 to 19, but value is 0.", 0, 1, 20, "values", "m");
    expectMessage("Parameter index  is too big. Range is 0 to 4, but value is 5.", 5, 0, 5, "index", nullptr);
    expectMessage("Parameter ?  is too big. Range is 0 to 4, but value is 0.", 0, 0, 5, nullptr, "");
    expectMessage("Parameter x to method y is too small. Range is 9223372036854775807 to -1, but value is "
                  "-9223372036854775808.",
                  INT64_MIN, INT64_MAX, 0, "x", "y");
    expectMessage("Parameter x  is too big. Range is 0 to 9223372036854775807, but value is 0.", 0, 0, INT64_MIN, "x", "");
    // Up to 400 bytes are on the stack, 200 of them for the fixed words.
    for (const std::size_t length : {199U, 200U}) {
        failAllocation(1);
        RaiseOutOfBoundsException(1, 0, 1, std::string(length, 'n').c_str(), "m");
        EXPECT_EQ(failAllocation(0), length == 200);
        EXPECT_EQ(std::get<1>(host.takeRaised().at(0)) == "Out of Bounds", length == 200);
    }
    const std::string longName(5000, 'n');
    expectMessage("Parameter x to method " + longName + " is too big. Range is 0 to 0, but value is 1.", 1, 0, 1, "x",
                  longName.c_str());
    failAllocation(1);
    expectMessage("Out of Bounds", 1, 0, 1, longName.c_str(), nullptr);
    EXPECT_TRUE(failAllocation(0));
}

TEST_F(Errors, CppExceptionsBecomeHostExceptions) {
    const auto expectTranslated = [&](auto exception, const char* className, const char* message) {
        translated([&] { throw exception; });
        expectRaised({{className, message, 0}});
    };
    expectTranslated(std::bad_alloc(), "OutOfMemoryException", "Failed to allocate memory.");
    expectTranslated(std::bad_array_new_length(), "OutOfMemoryException", "Failed to allocate memory.");
    expectTranslated(std::range_error("\xC3\xA4"), "OutOfBoundsException", "\xC3\xA4");
    expectTranslated(std::out_of_range("b"), "OutOfBoundsException", "b");
    expectTranslated(std::overflow_error("c"), "OutOfBoundsException", "c");
    expectTranslated(std::underflow_error("d"), "OutOfBoundsException", "d");
    expectTranslated(std::bad_cast(), "IllegalCastException", std::bad_cast().what());
    expectTranslated(std::length_error("e"), "RuntimeException", "e");
    expectTranslated(std::exception(), "RuntimeException", std::exception().what());
    struct Both : std::logic_error, std::runtime_error {
        Both() : std::logic_error("f"), std::runtime_error("g") {}
    };
    expectTranslated(Both(), "RuntimeException", "f");
    expectTranslated(CastAnd<std::logic_error>(), "RuntimeException", "h");
    expectTranslated(CastAnd<std::runtime_error>(), "RuntimeException", "h");
    expectTranslated(42, "RuntimeException", "Sorry, but there was an unnamed C++ Exception.");
    struct Silent : std::exception {
        const char* what() const noexcept override { return nullptr; }
    };
    expectTranslated(Silent(), "RuntimeException", "");
    // Without memory, 199 bytes remain of a message, and no partial character.
    const std::string shortText(199, 's'), longText = std::string(198, 'l') + "\xC3\xBC";
    expectTranslated(std::length_error(longText), "RuntimeException", longText.c_str());
    for (const auto& [text, kept] :
         {std::pair(shortText, shortText), {longText, std::string(198, 'l')}, {std::string(250, 's'), shortText}}) {
        const std::length_error error(text);
        failAllocation(1);
        expectTranslated(error, "RuntimeException", kept.c_str());
        EXPECT_EQ(failAllocation(0), text != kept);
    }

    int builds = 0;
    host.before["REALBuildString"] = [&] { return ++builds == 1 ? throw std::out_of_range("while building") : false; };
    EXPECT_EQ(REALBuildUnicodeString("x", 1, kCFStringEncodingUTF8), nullptr);
    expectRaised({{"OutOfBoundsException", "while building", 0}});
    builds = 0;
    host.before["REALBuildString"] = [&]() -> bool {
        if (++builds == 1) throw std::out_of_range("while building");
        return builds == 2 ? throw std::runtime_error("while reporting") : false;
    };
    EXPECT_EQ(REALBuildUnicodeString("x", 1, kCFStringEncodingUTF8), nullptr);
    expectRaised({{"RuntimeException", "while reporting", 0}, {"OutOfBoundsException", "", 0}});
    host.before["REALBuildString"] = []() -> bool { throw std::out_of_range("every time"); };
    EXPECT_EQ(REALBuildUnicodeString("x", 1, kCFStringEncodingUTF8), nullptr);
    expectRaised({{"OutOfBoundsException", "", 0}, {"OutOfBoundsException", "", 0}});
    RaiseException("NilObjectException", "the host throws while this message is built");
    expectRaised({{"OutOfBoundsException", "", 0}, {"OutOfBoundsException", "", 0}, {"NilObjectException", "", 0}});

    // Exceptions that are not C++ exceptions are not translated as such, whether the plugin or the host throws them.
    host.before["REALBuildString"] = []() -> bool { native::raise("HostException", "thrown by the host"); };
    auto build = [] { REALBuildUnicodeString("x", 1, kCFStringEncodingUTF8); };
    native::Sibling::install();
    guarded(build);
    expectRaised({{"NSExceptionZRX", "thrown by the host", -1}});
    const id object = native::string("no exception");
    host.before["REALBuildString"] = [=]() -> bool { throwNative(object); };
    auto fromGuarded = [&] { guarded(build); };
    EXPECT_EQ(catchNative(fromGuarded), object);

    // A host that throws by a jump while an exception is reported leaves no handler open.
    host.before = {{"RuntimeRaiseException", [=]() -> bool { throwNative(object); }}};
    auto reporting = [] { translated([] { throw std::out_of_range("reported"); }); };
    EXPECT_EQ(catchNative(reporting), object);
    EXPECT_EQ(std::current_exception(), nullptr);
    host.before.clear();
}

TEST_F(Errors, PlatformExceptionsAreBridgedByTheSiblingOrByNameAndReason) {
    bool finished = false;
    guarded([&] {
        native::raise("ColorException", "no gr\xC3\xBCn");
        finished = true;
    });
    EXPECT_FALSE(finished);
    const std::string reason(1000, 'r');
    guarded([&] { native::raise("Long", reason.c_str()); });
    guarded([&] { native::raise("", "nameless"); });
    native::Sibling::install();
    guarded([&] { native::raise("ColorException", "why"); });
    quiet([&] { native::raise("ColorException", "dropped"); });
    expectRaised({{"RuntimeException", "ColorException: no gr\xC3\xBCn", 0},
                  {"RuntimeException", "Long: " + reason, 0},
                  {"RuntimeException", "NSException: nameless", 0},
                  {"NSExceptionZRX", "why", -1}}); // the sibling's error number is used too

    const id metaclass = native::metaclass("NSException");
    native::replace(
        metaclass, "NewNSExceptionZRX:", +[](id, SEL, id) -> REALobjectStruct* { return nullptr; });
    guarded([&] { native::raise("ColorException", "dropped"); });
    native::fail(metaclass, "NewNSExceptionZRX:");
    guarded([&] { native::raise("ColorException", "dropped"); });
}

#if defined(CHROMA_SLICE) // there a throw retains, and the end of a handler releases
TEST_F(Errors, CaughtExceptionsOutliveTheThrowersPool) {
    native::replace(
        native::metaclass("NSColor"), "colorWithCalibratedWhite:alpha:", +[](id, SEL, CGFloat, CGFloat) -> id {
            const struct Pool {
                id pool = native::sendClass("NSAutoreleasePool", "new");
                ~Pool() { native::send<void>(pool, "drain"); }
            } pool;
            native::raise("ColorException", "why");
        });
    const std::size_t before = builtin_liveInstances("NSException");
    EXPECT_EQ(color::colorWithCalibratedWhite(1, 1), nullptr);
    expectRaised({{"RuntimeException", "ColorException: why", 0}});
    EXPECT_EQ(builtin_liveInstances("NSException"), before + 1);
    drainPool();
    EXPECT_EQ(builtin_liveInstances("NSException"), before);
}
#endif

TEST_F(Errors, OtherExceptionsPropagateAndCloseTheirGuards) {
    const id object = native::string("no exception");
    native::fail(native::object_getClass(object), "isKindOfClass:"); // like an object that responds to no messages
    auto throwing = [&] { throwNative(object); };
    auto fromGuarded = [&] { guarded(throwing); };
    auto fromQuiet = [&] { quiet(throwing); };
    // A guard left open would catch this in a frame that no longer exists.
    auto afterOthers = [&] {
        guarded([] {});
        EXPECT_THROW(guarded([] { throw std::runtime_error("propagates"); }), std::runtime_error);
        EXPECT_THROW(quiet([] { throw 1; }), int);
        throwNative(object);
    };
    EXPECT_EQ(catchNative(fromGuarded), object);
    EXPECT_EQ(catchNative(fromQuiet), object);
    EXPECT_EQ(catchNative(afterOthers), object);
    auto nil = [] { guarded([] { throwNative(nullptr); }); };
    EXPECT_NE(catchNative(nil), nullptr);

    // Cleanup runs once on every path.
    int cleanups = 0, onThrows = 0;
    const auto count = [](int& counter) { return [&counter] { ++counter; }; };
    const auto cleaned = [&](auto body) { withCleanup([&] { onThrow(body, count(onThrows)); }, count(cleanups)); };
    cleaned([] {});
    EXPECT_EQ(std::pair(cleanups, onThrows), std::pair(1, 0));
    auto native = [&] { cleaned(throwing); };
    EXPECT_EQ(catchNative(native), object);
    EXPECT_EQ(std::pair(cleanups, onThrows), std::pair(2, 1));
    EXPECT_THROW(cleaned([] { throw 1; }), int);
    EXPECT_EQ(std::pair(cleanups, onThrows), std::pair(3, 2));
    EXPECT_EQ(native::retainCount(object), 1U);
}

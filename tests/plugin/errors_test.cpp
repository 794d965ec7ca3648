// Failures of every kind on their way to host code.
#include "support/plugin_test.h"

#include "bridge/errors.h"
#include "bridge/frame.h"
#include "bridge/strings.h"

#include <new>
#include <stdexcept>
#include <typeinfo>

using namespace chroma;

class Errors : public PluginTest {
protected:
    void SetUp() override {
        PluginTest::SetUp();
        start();
    }
};

TEST_F(Errors, CarryMessageAndErrorNumber) {
    RaiseException("OutOfBoundsException", "Gr\xC3\xBCn");
    RaiseException("NoSuchException", "why");
    RaiseException("RuntimeException", nullptr);
    expectRaised({{"OutOfBoundsException", "Gr\xC3\xBCn", 0}, {"RuntimeException", "why", 0}, {"RuntimeException", "", 0}});
    host.plainClasses.clear();
    RaiseException("OutOfBoundsException", "unheard");
}

TEST_F(Errors, WordTheRange) {
    const auto expectMessage = [&](const std::string& message, std::int64_t value, std::int64_t minimum, std::int64_t limit,
                                   const char* name, const char* method) {
        RaiseOutOfBoundsException(value, minimum, limit, name, method);
        expectRaised({{"OutOfBoundsException", message, 0}});
    };
    expectMessage("Parameter values to method m is too big. Range is 1 to 19, but value is 20.", 20, 1, 20, "values", "m");
    expectMessage("Parameter values to method m is too small. Range is 1 to 19, but value is 0.", 0, 1, 20, "values", "m");
    expectMessage("Parameter index  is too big. Range is 0 to 4, but value is 5.", 5, 0, 5, "index", nullptr);
    expectMessage("Parameter ?  is too big. Range is 0 to 4, but value is 3.", 3, 0, 5, nullptr, "");
    expectMessage("Parameter x to method y is too small. Range is 9223372036854775807 to -1, but value is "
                  "-9223372036854775808.",
                  INT64_MIN, INT64_MAX, 0, "x", "y");
    const std::string longName(5000, 'n');
    expectMessage("Parameter x to method " + longName + " is too big. Range is 0 to 0, but value is 1.", 1, 0, 1, "x",
                  longName.c_str());
    failAllocation(1);
    expectMessage("Out of Bounds", 1, 0, 1, longName.c_str(), nullptr);
    EXPECT_TRUE(failAllocation(0));
}

TEST_F(Errors, InCppAreTranslated) {
    const auto expectTranslated = [&](auto exception, const char* className, const char* message) {
        translated([&] { throw exception; });
        expectRaised({{className, message, 0}});
    };
    expectTranslated(std::bad_alloc(), "OutOfMemoryException", "Failed to allocate memory.");
    expectTranslated(std::bad_array_new_length(), "OutOfMemoryException", "Failed to allocate memory.");
    expectTranslated(std::range_error("a"), "OutOfBoundsException", "a");
    expectTranslated(std::out_of_range("b"), "OutOfBoundsException", "b");
    expectTranslated(std::overflow_error("c"), "OutOfBoundsException", "c");
    expectTranslated(std::underflow_error("d"), "OutOfBoundsException", "d");
    expectTranslated(std::bad_cast(), "IllegalCastException", std::bad_cast().what());
    expectTranslated(std::length_error("e"), "RuntimeException", "e");
    expectTranslated(std::exception(), "RuntimeException", std::exception().what());
    expectTranslated(42, "RuntimeException", "Sorry, but there was an unnamed C++ Exception.");

    int builds = 0;
    host.onBuildString = [&] {
        if (++builds == 1) throw std::out_of_range("while building");
    };
    EXPECT_EQ(REALBuildUnicodeString("x", 1, kCFStringEncodingUTF8), nullptr);
    expectRaised({{"OutOfBoundsException", "while building", 0}});
    host.onBuildString = nullptr;
}

TEST_F(Errors, OfThePlatformTellNameAndReasonWithoutASibling) {
    bool finished = false;
    guarded([&] {
        native::raise("ColorException", "no gr\xC3\xBCn");
        finished = true;
    });
    EXPECT_FALSE(finished);
    const std::string reason(1000, 'r');
    guarded([&] { native::raise("Long", reason.c_str()); });
    expectRaised({{"RuntimeException", "ColorException: no gr\xC3\xBCn", 0}, {"RuntimeException", "Long: " + reason, 0}});
}

TEST_F(Errors, OfThePlatformAreTheSiblingsToTell) {
    native::Sibling::install();
    guarded([&] { native::raise("ColorException", "why"); });
    expectRaised({{"NSExceptionZRX", "why", -1}}); // its numbering too
    quiet([&] { native::raise("ColorException", "unheard"); });

    const id metaclass = native::metaclass("NSException");
    native::replace(
        metaclass, "NewNSExceptionZRX:", +[](id, SEL, id) -> REALobjectStruct* { return nullptr; });
    guarded([&] { native::raise("ColorException", "unheard"); });
    native::fail(metaclass, "NewNSExceptionZRX:");
    guarded([&] { native::raise("ColorException", "unheard"); });
}

TEST_F(Errors, ThatAreNoNSExceptionsPassOutwardAndCloseTheirGuards) {
    const id object = native::string("no exception");
    auto throwing = [&] { throwNative(object); };
    auto fromGuarded = [&] { guarded(throwing); };
    auto fromQuiet = [&] { quiet(throwing); };
    // A guard left open would catch this in a frame that is gone.
    auto afterCpp = [&] {
        EXPECT_THROW(guarded([] { throw std::runtime_error("outward"); }), std::runtime_error);
        EXPECT_THROW(quiet([] { throw 1; }), int);
        throwNative(object);
    };
    EXPECT_EQ(catchNative(fromGuarded), object);
    EXPECT_EQ(catchNative(fromQuiet), object);
    EXPECT_EQ(catchNative(afterCpp), object);

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
    CFRelease(object);
}

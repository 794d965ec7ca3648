// Failures of every kind on their way to host code.
#include "support/plugin_test.h"

#include "bridge/errors.h"
#include "bridge/frame.h"
#include "bridge/strings.h"

#include <new>
#include <stdexcept>
#include <typeinfo>

using namespace chroma;
using foreign::Host;

class Errors : public PluginTest {
protected:
    void SetUp() override {
        PluginTest::SetUp();
        object = native::string("no exception");
    }
    void TearDown() override {
        EXPECT_EQ(native::retainCount(object), 1U);
        CFRelease(object);
        PluginTest::TearDown();
    }
    id object; // something thrown that is not an NSException
};

TEST_F(Errors, CarryMessageAndErrorNumber) {
    start();
    RaiseException("OutOfBoundsException", "Gr\xC3\xBCn");
    EXPECT_EQ(raisedOne(), (Raised{"OutOfBoundsException", "Gr\xC3\xBCn", 0}));
    RaiseException("NoSuchException", "why");
    EXPECT_EQ(raisedOne(), (Raised{"RuntimeException", "why", 0}));
    RaiseException("RuntimeException", nullptr);
    EXPECT_EQ(raisedOne(), (Raised{"RuntimeException", "", 0}));
}

TEST_F(Errors, AreRaisedAsFarAsThePartialHostGoes) {
    host.missing = {"REALSetPropValueString", "REALSetPropValueInteger", "REALSetPropValueInt"};
    start();
    RaiseException("OutOfBoundsException", "unheard");
    EXPECT_EQ(raisedOne(), (Raised{"OutOfBoundsException", "", -1}));
}

TEST_F(Errors, AreDroppedWhereTheHostCannotRaise) {
    host.missing = {"RuntimeRaiseException"};
    start();
    RaiseException("OutOfBoundsException", "unheard");
    EXPECT_EQ(Host::liveObjects(), 0);
}

TEST_F(Errors, NeedAnInstance) {
    host.exceptionClasses.clear();
    start();
    RaiseException("OutOfBoundsException", "unheard");
}

TEST_F(Errors, WordTheRange) {
    start();
    const auto message = [&](std::int64_t value, std::int64_t minimum, std::int64_t limit, const char* name,
                             const char* method) {
        RaiseOutOfBoundsException(value, minimum, limit, name, method);
        const Raised raised = raisedOne();
        EXPECT_EQ(raised.className, "OutOfBoundsException");
        return raised.message;
    };
    EXPECT_EQ(message(25, 1, 20, "values ubound", "colorWithColorSpace"),
              "Parameter values ubound to method colorWithColorSpace is too big. Range is 1 to 19, but value is 25.");
    EXPECT_EQ(message(-1, 1, 20, "values ubound", "colorWithColorSpace"),
              "Parameter values ubound to method colorWithColorSpace is too small. Range is 1 to 19, but value is -1.");
    EXPECT_EQ(message(5, 0, 5, "index", nullptr), "Parameter index  is too big. Range is 0 to 4, but value is 5.");
    EXPECT_EQ(message(3, 0, 5, nullptr, ""), "Parameter ?  is too big. Range is 0 to 4, but value is 3.");
    EXPECT_EQ(message(INT64_MIN, INT64_MAX, 0, "x", "y"),
              "Parameter x to method y is too small. Range is 9223372036854775807 to -1, but value is "
              "-9223372036854775808.");
    const std::string longName(5000, 'n');
    EXPECT_NE(message(1, 0, 1, longName.c_str(), nullptr).find(longName), std::string::npos);
    failAllocation(1);
    EXPECT_EQ(message(1, 0, 1, longName.c_str(), nullptr), "Out of Bounds");
    EXPECT_TRUE(failAllocation(0));
}

TEST_F(Errors, TranslateStandardExceptions) {
    start();
    const auto thrown = [&](auto exception) {
        translated([&] { throw exception; });
        return raisedOne();
    };
    EXPECT_EQ(thrown(std::bad_alloc()), (Raised{"OutOfMemoryException", "Failed to allocate memory.", 0}));
    EXPECT_EQ(thrown(std::bad_array_new_length()).className, "OutOfMemoryException");
    EXPECT_EQ(thrown(std::range_error("a")), (Raised{"OutOfBoundsException", "a", 0}));
    EXPECT_EQ(thrown(std::out_of_range("b")), (Raised{"OutOfBoundsException", "b", 0}));
    EXPECT_EQ(thrown(std::overflow_error("c")), (Raised{"OutOfBoundsException", "c", 0}));
    EXPECT_EQ(thrown(std::underflow_error("d")), (Raised{"OutOfBoundsException", "d", 0}));
    EXPECT_EQ(thrown(std::length_error("e")), (Raised{"RuntimeException", "e", 0}));
    EXPECT_EQ(thrown(std::runtime_error("f")), (Raised{"RuntimeException", "f", 0}));
    EXPECT_EQ(thrown(std::bad_cast()).className, "IllegalCastException");
    EXPECT_EQ(thrown(std::exception()).className, "RuntimeException");
    EXPECT_EQ(thrown(42), (Raised{"RuntimeException", "Sorry, but there was an unnamed C++ Exception.", 0}));
}

TEST_F(Errors, InsideStringBuildingAreTranslatedToo) {
    start();
    int builds = 0;
    host.onBuildString = [&] {
        if (++builds == 1) throw std::out_of_range("while building");
    };
    EXPECT_EQ(REALBuildUnicodeString("x", 1, kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(raisedOne(), (Raised{"OutOfBoundsException", "while building", 0}));
    host.onBuildString = nullptr;
}

TEST_F(Errors, FromThePlatformWithoutSiblingTellNameAndReason) {
    start();
    bool finished = false;
    guarded([&] {
        native::raise("ColorException", "no gr\xC3\xBCn");
        finished = true;
    });
    EXPECT_FALSE(finished);
    EXPECT_EQ(raisedOne(), (Raised{"RuntimeException", "ColorException: no gr\xC3\xBCn", 0}));
    const std::string reason(1000, 'r');
    guarded([&] { native::raise("Long", reason.c_str()); });
    EXPECT_EQ(raisedOne().message, "Long: " + reason);
}

TEST_F(Errors, FromThePlatformGoThroughTheSibling) {
    start();
    native::Sibling::install();
    guarded([&] { native::raise("ColorException", "why"); });
    EXPECT_EQ(raisedOne(), (Raised{"NSExceptionZRX", "why", 0}));
    EXPECT_EQ(Host::liveObjects(), 0); // the library's reference went back
    quiet([&] { native::raise("ColorException", "unheard"); });
}

TEST_F(Errors, ASiblingThatMakesNothingDropsTheException) {
    start();
    native::Sibling::install();
    host.exceptionClasses.erase("NSExceptionZRX");
    const id metaclass = native::object_getClass(native::classNamed("NSException"));
    native::replace(
        metaclass, "NewNSExceptionZRX:", +[](id, SEL, id) -> REALobjectStruct* { return nullptr; });
    guarded([&] { native::raise("ColorException", "unheard"); });
    native::replace(
        metaclass,
        "NewNSExceptionZRX:", +[](id, SEL, id) -> REALobjectStruct* { native::raise("Second", "in the sibling"); });
    guarded([&] { native::raise("ColorException", "unheard"); });
}

TEST_F(Errors, OtherObjectsPassOutward) {
    start();
    for (int i = 0; i < 2; ++i) {
        auto inner = [&] {
            if (i == 0)
                guarded([&] { throwNative(object); });
            else
                quiet([&] { throwNative(object); });
            ADD_FAILURE() << "returned normally";
        };
        EXPECT_EQ(catchNative(inner), object);
    }
}

TEST_F(Errors, StandardExceptionsCloseTheGuardAndPass) {
    start();
    // A guard left open would catch this in a frame that is gone.
    auto outer = [&] {
        EXPECT_THROW(guarded([] { throw std::runtime_error("outward"); }), std::runtime_error);
        EXPECT_THROW(quiet([] { throw 1; }), int);
        throwNative(object);
    };
    EXPECT_EQ(catchNative(outer), object);
}

TEST_F(Errors, CleanupRunsOnceOnEveryPath) {
    int cleanups = 0, onThrows = 0;
    const auto count = [](int& counter) { return [&counter] { ++counter; }; };
    withCleanup([] {}, count(cleanups));
    onThrow([] {}, count(onThrows));
    EXPECT_EQ(cleanups, 1);
    EXPECT_EQ(onThrows, 0);
    auto native = [&] { withCleanup([&] { onThrow([&] { throwNative(object); }, count(onThrows)); }, count(cleanups)); };
    EXPECT_EQ(catchNative(native), object);
    EXPECT_EQ(cleanups, 2);
    EXPECT_EQ(onThrows, 1);
    EXPECT_THROW(withCleanup([&] { onThrow([] { throw 1; }, count(onThrows)); }, count(cleanups)), int);
    EXPECT_EQ(cleanups, 3);
    EXPECT_EQ(onThrows, 2);
}

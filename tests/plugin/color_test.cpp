// NSColorZRX when the platform or the host fails, and cases that complete programs do not reach.
#include "support/plugin_test.h"

#include "classes/color/color_shared.h"
#include "classes/color_list/color_list.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <numeric>
#include <sys/prctl.h>
#include <unistd.h>

using namespace chroma;
using namespace chroma::color;
using foreign::Owned;

namespace {

REALobjectStruct* rgb(double red, double green, double blue, double alpha = 1.0) {
    REALobjectStruct* const object = foreign::make("NSColorZRX");
    ConstructorRGB(object, red, green, blue, alpha);
    return object;
}

// Reads into outputs that are not zero before.
template <class... Doubles>
Components read(void (*function)(REALobjectStruct*, Doubles*...), const Reference& object) {
    std::array<double, sizeof...(Doubles)> outputs;
    outputs.fill(99.0);
    std::apply([&](Doubles&... output) { function(object, &output...); }, outputs);
    return {outputs.begin(), outputs.end()};
}

} // namespace

class Color : public SiblingTest {};

TEST_F(Color, IsConstructedOnceAndWrappedAsTheSameObject) {
    const Reference object(rgb(2.5, 0.0, 0.0));
    const Raised outOfRange{"OutOfBoundsException", "Invalid values. Please pass values in range 0.0 to 1.0.", 0};
    expectRaised({outOfRange});
    EXPECT_EQ(nativeObject(object), nullptr);
    ConstructorRGB(object, 1.0, 0.5, 0.0, 1.0); // construction of an empty object may be repeated
    const id held = nativeObject(object);
    EXPECT_EQ(native::retainCount(held), 2U); // the plugin's and the pool's
    const Raised refusal{"UnsupportedOperationException", "Constructor called too often. Object is already initialized.", 0};
    ConstructorColor(object, 0xFFFFFFFF);
    ConstructorRGB(object, 2.0, 0.0, 0.0, 1.0);
    ConstructorRGB(object, 9.0, 0.0, 0.0, 1.0); // the range is checked before the object, even without an object
    ConstructorRGB(nullptr, 0.0, 0.0, -1.5, 1.0);
    expectRaised({refusal, refusal, outOfRange, outOfRange});
    EXPECT_EQ(nativeObject(object), held);
    EXPECT_EQ(Reference(NewNSColorZRX(held)), object);

    // The host throws while the refusal is created.
    const Reference empty(foreign::make("NSColorZRX"));
    for (const auto& refused : std::initializer_list<std::function<void()>>{
             [&] { ConstructorColor(object, 0); }, [&] { ConstructorRGB(object, 0.0, 0.0, 0.0, 1.0); },
             [&] { ConstructorRGB(empty, 9.0, 0.0, 0.0, 1.0); }}) {
        host.before["RuntimeRaiseException"] = [&]() -> bool {
            host.before.clear();
            native::raise("HostException", "why");
        };
        refused();
        expectPlatformException({"why"});
    }
}

// Simulates systems where a small colour is a tagged pointer.
TEST_F(Color, TwoObjectsCanHoldOneNativeColor) {
    static id only;
    only = native::sendClass("NSColor", "colorWithCalibratedRed:green:blue:alpha:", CGFloat(1), CGFloat(0), CGFloat(0),
                             CGFloat(1));
    native::replace(
        native::metaclass("NSColor"),
        "colorWithCalibratedRed:green:blue:alpha:", +[](id, SEL, CGFloat, CGFloat, CGFloat, CGFloat) { return only; });
    const NSUInteger before = native::retainCount(only);
    for (const bool firstLives : {false, true}) {
        REALobjectStruct *const first = rgb(1, 0, 0), *const second = rgb(1, 0, 0);
        ASSERT_NE(first, second);
        EXPECT_EQ(nativeObject(first), nativeObject(second));
        EXPECT_EQ(Reference(NewNSColorZRX(only)), second); // the last one entered
        foreign::unlock(firstLives ? second : first);
        const Reference rest(firstLives ? first : second);
        EXPECT_EQ(registered(), firstLives ? 0 : 1);
        EXPECT_EQ(Reference(NewNSColorZRX(only)).get() == rest.get(), !firstLives);
        EXPECT_EQ(componentsOf(rest), (Components{1, 0, 0, 1}));
    }
    EXPECT_EQ(native::retainCount(only), before);
}

// Outputs written before an exception count only if the reading continues with the converted colour.
TEST_F(Color, ComponentsAreZeroIfReadingFails) {
    const Reference object(rgb(1.0, 1.0, 1.0));
    static id converted;
    static bool queriesAlpha;
    converted = nullptr;
    const id cls = native::object_getClass(nativeObject(object));
    native::replace(
        cls, "getRed:green:blue:alpha:", +[](id, SEL, CGFloat* red, CGFloat*, CGFloat*, CGFloat* alpha) {
            *red = 0.25;
            queriesAlpha = alpha != nullptr;
            if (alpha) *alpha = 0.5;
            native::raise("TestException", "after the first");
        });
    const auto convert = +[](id, SEL, id) { return converted; };
    native::replace(cls, "colorUsingColorSpaceName:", convert);
    native::replace(cls, "colorUsingColorSpace:", convert);
    const std::string ask = "getRed:green:blue:alpha:", byName = " colorUsingColorSpaceName:",
                      bySpace = " genericRGBColorSpace colorUsingColorSpace:";
    Components outputs;
    HostColor value = 1;
    const auto readAlpha = [&] { outputs = read(getRedA, object); };
    const auto readValue = [&] { value = colorValue(object, 0); };
    EXPECT_EQ(traceOf(readAlpha), ask + byName);
    EXPECT_EQ(outputs, (Components{0.25, 0.0, 0.0, 0.5}));
    EXPECT_EQ(traceOf(readValue), ask + bySpace);
    EXPECT_EQ(value, 0x3F0000U);
    EXPECT_TRUE(queriesAlpha);

    converted = nativeObject(object);
    EXPECT_EQ(traceOf(readAlpha).find(ask + byName + " " + ask + " "), 0U);
    EXPECT_EQ(outputs, Components(4));
    expectPlatformException();
    EXPECT_EQ(traceOf(readValue).find(ask + bySpace + " " + ask + " "), 0U);
    EXPECT_EQ(value, 0U);
    expectPlatformException();
    EXPECT_EQ(read(getRed, object), Components(3));
    expectPlatformException();
    EXPECT_FALSE(queriesAlpha);
}

TEST_F(Color, QueriesAlphaOnlyIfItIsRead) {
    const Reference object(rgb(1.0, 1.0, 1.0));
    const id cls = native::object_getClass(nativeObject(object));
    static bool queriesAlpha;
    const auto ofOne = +[](id, SEL, CGFloat*, CGFloat* alpha) { queriesAlpha = alpha != nullptr; };
    const auto ofThree = +[](id, SEL, CGFloat*, CGFloat*, CGFloat*, CGFloat* alpha) { queriesAlpha = alpha != nullptr; };
    const auto ofFour =
        +[](id, SEL, CGFloat*, CGFloat*, CGFloat*, CGFloat*, CGFloat* alpha) { queriesAlpha = alpha != nullptr; };
    native::replace(cls, "getWhite:alpha:", ofOne);
    native::replace(cls, "getHue:saturation:brightness:alpha:", ofThree);
    native::replace(cls, "getCyan:magenta:yellow:black:alpha:", ofFour);
    const auto queries = [&](auto function) {
        read(function, object);
        return queriesAlpha;
    };
    EXPECT_TRUE(queries(getWhiteA) && queries(getHueA) && queries(getCyanA));
    EXPECT_FALSE(queries(getWhite) || queries(getHue) || queries(getCyan));
}

TEST_F(Color, ComponentsBeyondThirtyTwoAreDropped) {
    const Reference object(rgb(1.0, 0.5, 0.0));
    const id cls = native::object_getClass(nativeObject(object));
    static NSInteger count = 32;
    native::replace(
        cls, "numberOfComponents", +[](id, SEL) { return count; });
    native::replace(
        cls, "getComponents:", +[](id, SEL, CGFloat* values) {
            for (int i = 0; i < count; ++i)
                values[i] = static_cast<CGFloat>(i);
        });
    Components expected(32);
    std::iota(expected.begin(), expected.end(), 0.0);
    failAllocation(1);
    EXPECT_EQ(componentsOf(object), expected);
    count = 33;
    EXPECT_EQ(componentsOf(object), Components());
    expectRaised({{"OutOfMemoryException", "Failed to allocate memory.", 0}});
    failAllocation(0);
    EXPECT_EQ(componentsOf(object), expected);
    count = -1;
    EXPECT_NE(traceOf([&] { EXPECT_EQ(componentsOf(object), Components()); }).find("getComponents:"), std::string::npos);
    native::fail(cls, "getComponents:");
    const Owned array(getComponents(object));
    EXPECT_NE(array, nullptr);
    expectPlatformException();
}

TEST_F(Color, EmptyObjectSendsNoMessage) {
    const Reference empty(foreign::make("NSColorZRX")), list(foreign::make("NSColorListZRX"));
    const Owned text(foreign::string("x"));
    const std::string trace = traceOf([&] {
        for (REALobjectStruct* const object : {empty.get(), static_cast<REALobjectStruct*>(nullptr)}) {
            EXPECT_EQ(blendedColorWithFraction(object, 0.5, nullptr), nullptr);
            EXPECT_EQ(colorUsingColorSpaceName(object, text), nullptr);
            EXPECT_EQ(getCGColor(object), 0);
            writeToPasteboard(object);
        }
        color_list::setColor(list, empty, text);
        EXPECT_FALSE(color_list::writeToFile(list, text));
    });
    EXPECT_EQ(trace, "");
}

// Starts the pasteboard server if the platform needs one, in a separate folder, so that the user's server is not affected.
// The server exits with this process.
bool servesPasteboards(const std::string& folder) {
    std::filesystem::create_directory(folder);
    setenv("TMPDIR", folder.c_str(), 1);
    if (fork() == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        execlp("gpbs", "gpbs", "--no-fork", nullptr);
        _exit(1);
    }
    const id name = native::string("GNUstepGSPasteboardServer");
    const id here = native::string("");
    id proxy = nullptr;
    for (int attempt = 0; attempt < 100 && !proxy; ++attempt) {
        usleep(50000);
        proxy = native::sendClass("NSConnection", "rootProxyForConnectionWithRegisteredName:host:", name, here);
    }
    return proxy != nullptr;
}

TEST_F(Color, RoundTripsThroughThePasteboard) {
    const std::string folder = ::testing::TempDir() + "pasteboard " + std::to_string(getpid());
    if (platform::isGNUstep && !servesPasteboards(folder)) GTEST_SKIP() << "gpbs is not installed or does not respond";
    const Reference empty(foreign::make("NSColorZRX")), color(colorWithCalibratedRed(0.125, 0.25, 0.5, 0.75));
    writeToPasteboard(empty);
    EXPECT_EQ(colorFromPasteboard(), nullptr);
    writeToPasteboard(color);
    if (platform::isGNUstep) {
        EXPECT_EQ(colorFromPasteboard(), nullptr) << "a pasteboard accepts only declared types";
        // Declares colours on the general pasteboard, as a program does before it writes.
        const id types = native::sendClass("NSArray", "arrayWithObjects:count:",
                                           static_cast<const id*>(dlsym(RTLD_DEFAULT, "NSColorPboardType")), NSUInteger{1});
        native::send<NSInteger>(native::sendClass("NSPasteboard", "generalPasteboard"), "declareTypes:owner:", types, id{});
        writeToPasteboard(color);
    }
    EXPECT_EQ(componentsOf(colorFromPasteboard()), componentsOf(color));
    std::filesystem::remove_all(folder);
}

TEST_F(Color, PatternColorKeepsItsImage) {
    host.plainClasses.insert("NSImageZRX"); // the class has no destructor then, so the test releases the image
    const id image = native::send(native::sendClass("NSImage", "alloc"), "init");
    const Reference object(foreign::make("NSImageZRX")), empty(foreign::make("NSImageZRX")), color(getredColor());
    setNativeObject(object, image);
    for (REALobjectStruct* const noImage : std::initializer_list<REALobjectStruct*>{nullptr, empty, color})
        EXPECT_EQ(colorWithPatternImage(noImage), nullptr);
    EXPECT_EQ(patternImage(color), nullptr);
    expectPlatformException();
    {
        const Reference pattern(colorWithPatternImage(object));
        ASSERT_NE(pattern, nullptr);
        CFDictionarySetValue(native::Sibling::registry(), image, object);
        EXPECT_EQ(Reference(patternImage(pattern)), object);
        CFDictionaryRemoveValue(native::Sibling::registry(), image);
        const Reference other(patternImage(pattern));
        EXPECT_EQ(nativeObject(other), image);
        EXPECT_EQ(foreign::classOf(other), "NSImageZRX");
        CFDictionaryRemoveValue(native::Sibling::registry(), image);
        native::send<void>(image, "release");

        const Owned name(foreign::string("NSCalibratedRGBColorSpace"));
        EXPECT_EQ(colorUsingColorSpaceName(pattern, name), nullptr);
        if (platform::differs("`colorUsingColorSpaceName:` of a pattern")) expectPlatformException();
        EXPECT_TRUE(platform::isGNUstep || colorValue(pattern, 0) == 0); // a pattern does not convert
        host.plainClasses.erase("NSImageZRX");
        EXPECT_EQ(patternImage(pattern), nullptr); // the class does not exist here
    }
    drainPool();
    EXPECT_EQ(native::retainCount(image), 1U);
    native::send<void>(image, "release");
}

TEST_F(Color, PatternColorNeedsTheRegistryWithoutObjectIsA) {
    host.missing = {"ChromaObjectIsA"};
    host.plainClasses.insert("NSImageZRX");
    const id image = native::send(native::send(native::sendClass("NSImage", "alloc"), "init"), "autorelease");
    const Reference object(foreign::make("NSImageZRX")), color(getredColor());
    setNativeObject(object, image);
    EXPECT_EQ(colorWithPatternImage(object), nullptr);
    CFDictionarySetValue(native::Sibling::registry(), image, object);
    EXPECT_NE(Reference(colorWithPatternImage(object)), nullptr);
    setNativeObject(object, nullptr); // as a script does through Handle
    EXPECT_EQ(colorWithPatternImage(object), nullptr);
    EXPECT_EQ(colorWithPatternImage(color), nullptr); // registered, but not an image
    CFDictionaryRemoveValue(native::Sibling::registry(), image);
}

// NSColorZRX as host code sees it: made by constructors and shared methods, read back in every form, derived and refused.
#include "support/plugin_test.h"

#include "classes/color/color_factories.h"

#include <array>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <limits>
#include <numeric>
#include <sys/prctl.h>
#include <unistd.h>

using namespace chroma;
using namespace chroma::color;
using foreign::Owned;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

REALobjectStruct* rgb(double red, double green, double blue, double alpha = 1.0) {
    REALobjectStruct* const object = foreign::make("NSColorZRX");
    ConstructorRGB(object, red, green, blue, alpha);
    return object;
}

template <class... Numbers>
REALobjectStruct* made(const char* message, Numbers... components) {
    return NewNSColorZRX(native::sendClass("NSColor", message, single(components)...));
}

// Reads into outputs that held something before.
template <class... Doubles>
Components read(void (*function)(REALobjectStruct*, Doubles*...), const Reference& object) {
    std::array<double, sizeof...(Doubles)> outputs;
    outputs.fill(99.0);
    std::apply([&](Doubles&... output) { function(object, &output...); }, outputs);
    return {outputs.begin(), outputs.end()};
}

void expectNear(const Components& actual, const Components& expected, const std::string& what) {
    ASSERT_EQ(actual.size(), expected.size()) << what;
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-6) << what << ", output " << i;
}

REALobjectStruct* space(const char* message) { return NewNSColorSpaceZRX(native::sendClass("NSColorSpace", message)); }

} // namespace

class Color : public SiblingTest {};

// Whatever the platform's own precision is; and the host's colour value has its alpha as it is.
TEST_F(Color, IsOfSinglePrecision) {
    const auto part = [](int channel) -> double { return static_cast<float>(channel / 255.0); };
    const Reference ofValue(foreign::make("NSColorZRX"));
    ConstructorColor(ofValue, 0x01020304);
    EXPECT_EQ(read(getRedA, ofValue), (Components{part(2), part(3), part(4), part(1)}));
    const double a = 0.1, A = single(a);
    EXPECT_EQ(read(getRedA, rgb(a, a, a, a)), Components(4, A));
    EXPECT_EQ(componentsOf(colorWithDeviceCyan(a, a, a, a, a)), Components(5, A));
    EXPECT_EQ(componentsOf(colorWithAlphaComponent(Reference(colorWithCalibratedWhite(a, 1.0)), a)), Components(2, A));
    const Owned values(foreign::doubles({a, a}));
    EXPECT_EQ(componentsOf(colorWithColorSpace(Reference(space("genericGrayColorSpace")), values)), Components(2, A));
}

TEST_F(Color, FromComponentsInTheAcceptedRange) {
    const double third = static_cast<float>(1.0 / 3.0);
    EXPECT_EQ(read(getRedA, rgb(-1.0, 2.0, 1.0 / 3.0, 7.0)),
              platform::expected(Difference::CalibratedRange, Components{-1.0, 2.0, third, 7.0},
                                 Components{0.0, 1.0, third, 1.0}));
    EXPECT_NE(nativeObject(Reference(rgb(notANumber, 0.0, 0.0))), nullptr);

    const double tooBig = 2.0000001, tooSmall = std::nextafter(-1.0, -2.0);
    const double refused[][3] = {{tooBig, 0, 0},   {0, tooBig, 0},   {0, 0, tooBig},
                                 {tooSmall, 0, 0}, {0, tooSmall, 0}, {0, 0, std::numeric_limits<double>::infinity()}};
    for (const auto& [red, green, blue] : refused) {
        const Reference object(rgb(red, green, blue));
        expectRaised({{"OutOfBoundsException", "Invalid values. Please pass values in range 0.0 to 1.0.", 0}});
        EXPECT_EQ(nativeObject(object), nullptr);
        ConstructorRGB(object, 1.0, 0.5, 0.0, 1.0); // an empty object may be tried again
        EXPECT_EQ(read(getRedA, object), (Components{1.0, 0.5, 0.0, 1.0}));
    }
}

TEST_F(Color, IsMadeOnceAndComesBackAsItsObject) {
    const Reference object(rgb(1.0, 0.5, 0.0));
    const id held = nativeObject(object);
    EXPECT_EQ(native::retainCount(held), 2U); // ours, and the pool's
    const Raised refusal{"UnsupportedOperationException", "Constructor called too often. Object is already initialized.", 0};
    ConstructorColor(object, 0xFFFFFFFF);
    ConstructorRGB(object, 9.0, 0.0, 0.0, 1.0);
    expectRaised({refusal, refusal});
    EXPECT_EQ(nativeObject(object), held);
    EXPECT_EQ(Reference(NewNSColorZRX(held)), object);
}

TEST_F(Color, ReadsInItsOwnFormsAndConvertsOnlyWhereAlphaIsAsked) {
    const Reference inRGB(rgb(1.0, 0.5, 0.25, 0.75)), grey(made("colorWithCalibratedWhite:alpha:", 0.5, 0.75)),
        cmyk(made("colorWithDeviceCyan:magenta:yellow:black:alpha:", 0.25, 0.5, 0.75, 0.125, 0.5));
    const Reference converted(
        NewNSColorZRX(native::send(nativeObject(cmyk), "colorUsingColorSpaceName:", NSCalibratedRGBColorSpace)));
    const Components refused;
    const struct {
        const char* name;
        Components (*read)(const Reference& object);
        Components ofRGB, ofGrey, ofCMYK;
    } readers[] = {
#define READER(name) #name, [](const Reference& object) { return read(name, object); }
        {READER(getRed), {1.0, 0.5, 0.25}, refused, refused},
        {READER(getRedA), {1.0, 0.5, 0.25, 0.75}, {0.5, 0.5, 0.5, 0.75}, read(getRedA, converted)},
        {READER(getHue), {1.0 / 18, 0.75, 1.0}, refused, refused},
        {READER(getHueA), {1.0 / 18, 0.75, 1.0, 0.75}, {0.0, 0.0, 0.5, 0.75}, read(getHueA, converted)},
        {READER(getWhite), refused, {0.5}, refused},
        {READER(getWhiteA), refused, {0.5, 0.75}, refused},
        {READER(getCyan), refused, refused, {0.25, 0.5, 0.75, 0.125}},
        {READER(getCyanA), refused, refused, {0.25, 0.5, 0.75, 0.125, 0.5}},
    };
    for (const auto& reader : readers) {
        const std::string name = reader.name;
        const auto check = [&](const Reference& object, const Components& expected) {
            const Components actual = reader.read(object);
            expectNear(actual, expected.empty() ? Components(actual.size()) : expected, name);
            if (expected.empty()) expectPlatformException({name.substr(0, name.find('A'))});
        };
        check(inRGB, reader.ofRGB);
        check(grey, reader.ofGrey);
        check(cmyk, reader.ofCMYK);
    }

    EXPECT_EQ(componentsOf(inRGB), (Components{1.0, 0.5, 0.25, 0.75}));
    EXPECT_EQ(componentsOf(grey), (Components{0.5, 0.75}));
    EXPECT_EQ(numberOfComponents(inRGB, 0), 4);
    EXPECT_EQ(numberOfComponents(cmyk, 0), 5);
    EXPECT_EQ(colorValue(grey, 0), 0x7F7F7FU);
    EXPECT_EQ(foreign::take(colorSpaceName(inRGB, 0)), "NSCalibratedRGBColorSpace");
    EXPECT_EQ(foreign::take(description(inRGB, 0)),
              platform::expected<std::string>(
                  Difference::Description, "NSCalibratedRGBColorSpace 1 0.5 0.25 0.75",
                  R"({ ColorSpace = "NSCalibratedRGBColorSpace"; R = "1"; G = "0.5"; B = "0.25"; Alpha = "0.75"; })"));
    EXPECT_EQ(DummyException(inRGB), nullptr);
}

// What a platform wrote before it raised counts only where the reading goes on with the colour converted, each in its way.
TEST_F(Color, ReadInPartsIsZeroUnlessItWasConverted) {
    const Reference object(rgb(1.0, 1.0, 1.0));
    static id converted;
    static bool asksAlpha;
    converted = nullptr;
    const id cls = native::object_getClass(nativeObject(object));
    native::replace(
        cls, "getRed:green:blue:alpha:", +[](id, SEL, CGFloat* red, CGFloat*, CGFloat*, CGFloat* alpha) {
            *red = 0.25;
            asksAlpha = alpha != nullptr;
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

    converted = nativeObject(object);
    EXPECT_EQ(traceOf(readAlpha).find(ask + byName + " " + ask + " "), 0U);
    EXPECT_EQ(outputs, Components(4));
    expectPlatformException();
    EXPECT_EQ(traceOf(readValue).find(ask + bySpace + " " + ask + " "), 0U);
    EXPECT_EQ(value, 0U);
    expectPlatformException();
    EXPECT_EQ(read(getRed, object), Components(3));
    expectPlatformException();
    EXPECT_FALSE(asksAlpha);
}

TEST_F(Color, ValueTruncatesAndClamps) {
    const auto valueOf = [](double red, double green, double blue, double alpha = 1.0) {
        return colorValue(Reference(rgb(red, green, blue, alpha)), 0);
    };
    EXPECT_EQ(valueOf(1.0, 0.5, 0.0, 0.25), 0x00FF7F00U);
    EXPECT_EQ(valueOf(0.999, 0.999, 0.999), 0x00FEFEFEU);
    EXPECT_EQ(valueOf(2.0, -1.0, -0.1), 0x00FF0000U);
    EXPECT_EQ(valueOf(notANumber, 1.0, 1.0), 0x0000FFFFU);
}

TEST_F(Color, ComponentsBeyondThirtyTwoAreReadAndCut) {
    const Reference object(rgb(1.0, 0.5, 0.0));
    const id cls = native::object_getClass(nativeObject(object));
    native::replace(
        cls, "numberOfComponents", +[](id, SEL) -> NSInteger { return 100; });
    native::replace(
        cls, "getComponents:", +[](id, SEL, CGFloat* values) {
            for (int i = 0; i < 100; ++i)
                values[i] = static_cast<CGFloat>(i);
        });
    Components expected(32);
    std::iota(expected.begin(), expected.end(), 0.0);
    EXPECT_EQ(componentsOf(object), expected);
}

TEST_F(Color, FromFactoriesKeepsItsIdentityAndIsRefusedNothing) {
    const Reference red(getredColor());
    EXPECT_EQ(Reference(getredColor()) == red, !platform::differs(Difference::PlainColors));
    EXPECT_EQ(
        componentsOf(colorWithCalibratedRed(2.5, -0.5, 0.0, 1.0)),
        platform::expected(Difference::CalibratedRange, Components{2.5, -0.5, 0.0, 1.0}, Components{1.0, 0.0, 0.0, 1.0}));
    EXPECT_EQ(foreign::take(colorSpaceName(Reference(colorWithSRGBRed(0, 0, 0, 1)), 0)),
              platform::expected<std::string>(Difference::SRGBSpaceName, "NSCustomColorSpace", "NSCalibratedRGBColorSpace"));
}

TEST_F(Color, InASpaceNeedsTheSpaceThenTheCount) {
    const Reference rgb(space("genericRGBColorSpace")), empty(foreign::make("NSColorSpaceZRX"));
    const auto with = [](REALobjectStruct* inSpace, std::size_t count) {
        const Owned values(foreign::doubles(Components(count, 0.5)));
        return componentsOf(colorWithColorSpace(inSpace, values));
    };
    EXPECT_EQ(with(rgb, 4), Components(4, 0.5));
    with(nullptr, 0);
    with(empty, 4);
    const Raised nil{"NilObjectException", "Colorspace is nil!", 0};
    expectRaised({nil, nil});

    const auto refused = [](const std::string& how) {
        return Raised{"OutOfBoundsException", "Parameter values ubound to method colorWithColorSpace is too " + how, 0};
    };
    with(rgb, 0);
    with(rgb, 1);
    with(rgb, 21);
    colorWithColorSpace(rgb, nullptr);
    expectRaised({refused("small. Range is 1 to 19, but value is -1."), refused("small. Range is 1 to 19, but value is 0."),
                  refused("big. Range is 1 to 19, but value is 20."), refused("small. Range is 1 to 19, but value is -1.")});
    // 2 and 20 components pass the library, and the platform says what it thinks of them.
    for (const std::size_t count : {2U, 20U}) {
        EXPECT_EQ(with(rgb, count), Components());
        if (!platform::differs(Difference::WrongCount)) expectPlatformException();
    }
}

TEST_F(Color, DerivesAndStaysItself) {
    const Reference color(colorWithCalibratedRed(1.0, 0.5, 0.0, 1.0)), blue(getblueColor());
    const Owned unknown(foreign::string("no such space"));
    EXPECT_EQ(componentsOf(blendedColorWithFraction(color, 0.25, blue)), (Components{0.75, 0.375, 0.25, 1.0}));
    EXPECT_EQ(componentsOf(color), (Components{1.0, 0.5, 0.0, 1.0}));

    EXPECT_EQ(blendedColorWithFraction(color, 0.5, nullptr), nullptr);
    EXPECT_EQ(colorUsingColorSpaceName(color, unknown), nullptr);
    EXPECT_EQ(componentsOf(colorUsingColorSpaceName(color, nullptr)),
              platform::expected(Difference::NilSpaceName, Components(), Components{1.0, 0.5, 0.0, 1.0}));
    EXPECT_EQ(componentsOf(colorUsingColorSpace(color, nullptr)),
              platform::expected(Difference::NilSpace, Components(), Components{0.5, 1.0}));
    EXPECT_EQ(componentsOf(colorWithColorSpaceHSV(nullptr, 0.0, 1.0, 0.5, 0.25)),
              platform::expected(Difference::HueWithoutSpace, Components(), Components{0.5, 0.0, 0.0, 0.25}));
    if (!platform::differs(Difference::HueWithoutSpace)) expectPlatformException();

    const Reference first(colorSpace(color));
    EXPECT_EQ(Reference(colorSpace(color)), first);
    EXPECT_EQ(foreign::classOf(first), "NSColorSpaceZRX");
}

TEST_F(Color, OfAMessageThatThePlatformLacksIsAHostException) {
    const bool isAnswered = !platform::lacks("+[NSColor scrubberTexturedBackgroundColor]");
    if (isAnswered)
        native::replace(
            native::metaclass("NSColor"), "scrubberTexturedBackgroundColor",
            +[](id self, SEL) { return native::send(self, "aMessageNobodyKnows"); });
    EXPECT_EQ(scrubberTexturedBackgroundColor(), nullptr);
    expectPlatformException({isAnswered ? "aMessageNobodyKnows" : "scrubberTexturedBackgroundColor", "recognize"});
}

// Starts what serves the pasteboards where they need a server, in a folder of its own, so that a user's is left alone. It
// ends with this process.
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

TEST_F(Color, GoesThroughThePasteboard) {
    const std::string folder = ::testing::TempDir() + "pasteboard " + std::to_string(getpid());
    if (platform::isGNUstep && !servesPasteboards(folder)) GTEST_SKIP() << "gpbs is not installed or does not answer";
    const Reference empty(foreign::make("NSColorZRX")), color(colorWithCalibratedRed(0.125, 0.25, 0.5, 0.75));
    writeToPasteboard(empty);
    EXPECT_EQ(colorFromPasteboard(), nullptr);
    writeToPasteboard(color);
    if (platform::differs(Difference::PasteboardType)) {
        EXPECT_EQ(colorFromPasteboard(), nullptr);
        // Lets the general pasteboard take colours, as a program does before it writes.
        const id types = native::sendClass("NSArray", "arrayWithObjects:count:",
                                           static_cast<const id*>(dlsym(RTLD_DEFAULT, "NSColorPboardType")), NSUInteger{1});
        native::send<NSInteger>(native::sendClass("NSPasteboard", "generalPasteboard"), "declareTypes:owner:", types, id{});
        writeToPasteboard(color);
    }
    EXPECT_EQ(componentsOf(colorFromPasteboard()), componentsOf(color));
    std::filesystem::remove_all(folder);
}

TEST_F(Color, OfAPatternKeepsItsImage) {
    host.plainClasses.insert("NSImageZRX"); // has no destructor then: its image is released here
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
        if (platform::differs(Difference::PatternConversion)) expectPlatformException();
        host.plainClasses.erase("NSImageZRX");
        EXPECT_EQ(patternImage(pattern), nullptr); // no such class here
    }
    drainPool();
    EXPECT_EQ(native::retainCount(image), 1U);
    native::send<void>(image, "release");
}

TEST_F(Color, OfAPatternNeedsTheRegistryOnHostsThatTellNoClasses) {
    host.missing = {"ChromaObjectIsA"};
    host.plainClasses.insert("NSImageZRX");
    const id image = native::send(native::send(native::sendClass("NSImage", "alloc"), "init"), "autorelease");
    const Reference object(foreign::make("NSImageZRX")), color(getredColor());
    setNativeObject(object, image);
    EXPECT_EQ(colorWithPatternImage(object), nullptr);
    CFDictionarySetValue(native::Sibling::registry(), image, object);
    EXPECT_NE(Reference(colorWithPatternImage(object)), nullptr);
    EXPECT_EQ(colorWithPatternImage(color), nullptr); // registered, but no image
    CFDictionaryRemoveValue(native::Sibling::registry(), image);
}

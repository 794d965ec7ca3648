// The shared methods of NSColorZRX, and colours derived from colours.
#include "support/pasteboard_server.h"
#include "support/plugin_test.h"

#include "classes/color/color.h"
#include "classes/color/color_factories.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

using namespace chroma;
using namespace chroma::color;
using foreign::Host;

class Factories : public SiblingTest {
protected:
    // The components of a factory's answer, which is given up; empty for nil.
    static std::vector<double> componentsOf(REALobjectStruct* color) {
        if (!color) return {};
        const auto components = foreign::take(getComponents(color));
        foreign::unlock(color);
        return components;
    }
    static REALobjectStruct* space(const char* name) {
        return NewNSColorSpaceZRX(native::tell(native::classNamed("NSColorSpace"), name));
    }
};

TEST_F(Factories, EachReachesItsOwnMessageWithEveryComponent) {
    using Components = std::vector<double>;
    EXPECT_EQ(componentsOf(colorWithCalibratedRed(0.125, 0.25, 0.5, 0.75)), (Components{0.125, 0.25, 0.5, 0.75}));
    EXPECT_EQ(componentsOf(colorWithDeviceRed(0.125, 0.25, 0.5, 0.75)), (Components{0.125, 0.25, 0.5, 0.75}));
    EXPECT_EQ(componentsOf(colorWithSRGBRed(0.125, 0.25, 0.5, 0.75)), (Components{0.125, 0.25, 0.5, 0.75}));
    EXPECT_EQ(componentsOf(colorWithDisplayP3Red(0.125, 0.25, 0.5, 0.75)), (Components{0.125, 0.25, 0.5, 0.75}));
    EXPECT_EQ(componentsOf(colorWithCalibratedWhite(0.25, 0.5)), (Components{0.25, 0.5}));
    EXPECT_EQ(componentsOf(colorWithDeviceWhite(0.25, 0.5)), (Components{0.25, 0.5}));
    EXPECT_EQ(componentsOf(colorWithGenericGamma22White(0.25, 0.5)), (Components{0.25, 0.5}));
    EXPECT_EQ(componentsOf(colorWithDeviceCyan(0.125, 0.25, 0.5, 0.75, 1.0)), (Components{0.125, 0.25, 0.5, 0.75, 1.0}));
    EXPECT_EQ(componentsOf(colorWithCalibratedHue(0.0, 1.0, 0.5, 0.25)), (Components{0.5, 0.0, 0.0, 0.25}));
    EXPECT_EQ(componentsOf(colorWithDeviceHue(0.0, 1.0, 0.5, 0.25)), (Components{0.5, 0.0, 0.0, 0.25}));
    // Unlike the constructor, the factory refuses nothing.
    EXPECT_EQ(
        componentsOf(colorWithCalibratedRed(2.5, -0.5, 0.0, 1.0)),
        platform::expected(Difference::CalibratedRange, Components{2.5, -0.5, 0.0, 1.0}, Components{1.0, 0.0, 0.0, 1.0}));

    const auto spaceNameOf = [](REALobjectStruct* color) {
        const std::string name = foreign::take(colorSpaceName(color, 0));
        foreign::unlock(color);
        return name;
    };
    EXPECT_EQ(spaceNameOf(colorWithCalibratedRed(0, 0, 0, 1)), "NSCalibratedRGBColorSpace");
    EXPECT_EQ(spaceNameOf(colorWithDeviceHue(0, 0, 0, 1)), "NSDeviceRGBColorSpace");
    EXPECT_EQ(spaceNameOf(colorWithDeviceWhite(0, 1)), "NSDeviceWhiteColorSpace");
    EXPECT_EQ(spaceNameOf(colorWithSRGBRed(0, 0, 0, 1)),
              platform::expected<std::string>(Difference::SRGBSpaceName, "NSCustomColorSpace", "NSCalibratedRGBColorSpace"));
}

TEST_F(Factories, NamedColoursAreTheirOwnAndKeepTheirIdentity) {
    REALobjectStruct* const red = getredColor();
    REALobjectStruct* const again = getredColor();
    EXPECT_EQ(red == again, !platform::differs(Difference::PlainColors));
    EXPECT_EQ(foreign::references(red), red == again ? 2 : 1);
    EXPECT_EQ(colorValue(red, 0), 0xFF0000U);
    foreign::unlock(again);
    foreign::unlock(red);

    // Every one answers, and each under the name it was asked for.
    struct Named {
        const char* name;
        REALobjectStruct* (*function)();
    };
#define NAMED(name) {#name, get##name},
    const Named all[] = {CHROMA_SYSTEM_COLORS(NAMED)};
    for (const Named& named : all) {
        REALobjectStruct* const color = named.function();
        ASSERT_NE(color, nullptr) << named.name;
        const id direct = native::tell(native::classNamed("NSColor"), named.name);
        const std::string catalogName = foreign::take(colorNameComponent(color, 0));
        const bool isAnew = catalogName.empty() && platform::differs(Difference::PlainColors);
        EXPECT_EQ(nativeObject(color) == direct, !isAnew) << named.name;
        EXPECT_TRUE(native::tell<BOOL>(nativeObject(color), "isEqual:", direct)) << named.name;
        EXPECT_TRUE(catalogName.empty() || catalogName == named.name) << catalogName;
        foreign::unlock(color);
    }
}

TEST_F(Factories, SharedMethodsFindTheRegistryOnTheirOwn) {
    foreign::unlock(getblackColor());
    EXPECT_EQ(native::Sibling::registryRequests, 1);
    EXPECT_EQ(native::Sibling::preparations, 1);
}

TEST_F(Factories, ColorWithColorSpaceChecksSpaceThenCount) {
    REALobjectStruct* const rgb = space("genericRGBColorSpace");
    const auto with = [&](REALobjectStruct* inSpace, std::size_t count) {
        REALarrayDouble* const values = foreign::doubles(std::vector<double>(count, 0.5));
        REALobjectStruct* const color = colorWithColorSpace(inSpace, values);
        foreign::unlock(foreign::object(values));
        return componentsOf(color);
    };
    EXPECT_EQ(with(rgb, 4), (std::vector<double>{0.5, 0.5, 0.5, 0.5}));
    const Raised nil{"NilObjectException", "Colorspace is nil!", 0};
    host.exceptionClasses.insert("NilObjectException");
    with(nullptr, 0);
    EXPECT_EQ(raisedOne(), nil);
    REALobjectStruct* const empty = foreign::make("NSColorSpaceZRX");
    with(empty, 4);
    EXPECT_EQ(raisedOne(), nil);
    foreign::unlock(empty);

    const auto refused = [](const char* how, int value) {
        return Raised{"OutOfBoundsException",
                      std::string("Parameter values ubound to method colorWithColorSpace is too ") + how +
                          ". Range is 1 to 19, but value is " + std::to_string(value) + ".",
                      0};
    };
    with(rgb, 0);
    EXPECT_EQ(raisedOne(), refused("small", -1));
    with(rgb, 1);
    EXPECT_EQ(raisedOne(), refused("small", 0));
    with(rgb, 21);
    EXPECT_EQ(raisedOne(), refused("big", 20));
    colorWithColorSpace(rgb, nullptr);
    EXPECT_EQ(raisedOne(), refused("small", -1));
    // 2 and 20 components pass the library, and the platform says what it thinks of them.
    for (const std::size_t count : {2U, 20U}) {
        EXPECT_EQ(with(rgb, count), std::vector<double>());
        if (!platform::differs(Difference::WrongCount)) expectPlatformException();
    }
    foreign::unlock(rgb);
}

TEST_F(Factories, ColorWithColorSpaceHSVPassesNilOn) {
    REALobjectStruct* const rgb = space("genericRGBColorSpace");
    EXPECT_EQ(componentsOf(colorWithColorSpaceHSV(rgb, 0.0, 1.0, 0.5, 0.25)), (std::vector<double>{0.5, 0.0, 0.0, 0.25}));
    const auto withoutSpace = componentsOf(colorWithColorSpaceHSV(nullptr, 0.0, 1.0, 0.5, 0.25));
    EXPECT_EQ(withoutSpace, platform::expected(Difference::HueWithoutSpace, std::vector<double>(),
                                               std::vector<double>{0.5, 0.0, 0.0, 0.25}));
    if (!platform::differs(Difference::HueWithoutSpace)) expectPlatformException();
    foreign::unlock(rgb);
}

TEST_F(Factories, ACGColorMakesAnEqualColour) {
    if (platform::lacks("+", "colorWithCGColor:")) {
        EXPECT_EQ(colorWithCGColor(0), nullptr);
        expectUnrecognized("colorWithCGColor:");
        return;
    }
    REALobjectStruct* const color = colorWithCalibratedRed(0.125, 0.25, 0.5, 0.75);
    EXPECT_EQ(componentsOf(colorWithCGColor(getCGColor(color))), (std::vector<double>{0.125, 0.25, 0.5, 0.75}));
    EXPECT_EQ(colorWithCGColor(0), nullptr);
    foreign::unlock(color);
}

TEST_F(Factories, ThePasteboardCarriesAColour) {
    const PasteboardServer server;
    if (!server.isReachable()) GTEST_SKIP() << server.reason();
    EXPECT_EQ(colorFromPasteboard(), nullptr);
    REALobjectStruct* const empty = foreign::make("NSColorZRX");
    writeToPasteboard(empty);
    writeToPasteboard(nullptr);
    EXPECT_EQ(colorFromPasteboard(), nullptr);
    foreign::unlock(empty);
    REALobjectStruct* const color = colorWithCalibratedRed(0.125, 0.25, 0.5, 0.75);
    writeToPasteboard(color);
    if (platform::differs(Difference::PasteboardType)) {
        EXPECT_EQ(colorFromPasteboard(), nullptr);
        server.declareColorType();
        writeToPasteboard(color);
    }
    foreign::unlock(color);
    EXPECT_EQ(componentsOf(colorFromPasteboard()), (std::vector<double>{0.125, 0.25, 0.5, 0.75}));
}

class Patterns : public Factories {
protected:
    void SetUp() override {
        Factories::SetUp();
        host.exceptionClasses.insert("NSImageZRX"); // a class without a record will do
        image = native::tell(native::tell(native::classNamed("NSImage"), "alloc"), "init");
        object = foreign::make("NSImageZRX");
        setNativeObject(object, image);
        foreign::unlock(foreign::make("NSColorZRX"));
    }
    void TearDown() override {
        foreign::unlock(object);
        CFDictionaryRemoveValue(native::Sibling::registry(), image);
        EXPECT_EQ(native::retainCount(image), retains);
        while (retains-- > 0)
            native::tell<void>(image, "release");
        Factories::TearDown();
    }
    id image;
    NSUInteger retains = 1;
    REALobjectStruct* object;
};

TEST_F(Patterns, KeepTheirImage) {
    REALobjectStruct* const pattern = colorWithPatternImage(object);
    ASSERT_NE(pattern, nullptr);
    CFDictionarySetValue(native::Sibling::registry(), image, object);
    EXPECT_EQ(patternImage(pattern), object);
    EXPECT_EQ(foreign::references(object), 2);
    foreign::unlock(object);

    CFDictionaryRemoveValue(native::Sibling::registry(), image);
    REALobjectStruct* const other = patternImage(pattern);
    EXPECT_NE(other, object);
    EXPECT_EQ(nativeObject(other), image);
    EXPECT_EQ(patternImage(pattern), other);
    foreign::unlock(other);
    foreign::unlock(other);
    retains = 2; // the stand-in class has no destructor that would release the image
    foreign::unlock(pattern);
    drainPool();
}

TEST_F(Patterns, ConvertToNothing) {
    REALobjectStruct* const pattern = colorWithPatternImage(object);
    REALstringStruct* const name = foreign::string("NSCalibratedRGBColorSpace");
    EXPECT_EQ(colorUsingColorSpaceName(pattern, name), nullptr);
    if (platform::differs(Difference::PatternConversion)) expectPlatformException();
    foreign::unlock(name);
    foreign::unlock(pattern);
    drainPool();
}

TEST_F(Patterns, AreMadeOfNothingButImages) {
    EXPECT_EQ(colorWithPatternImage(nullptr), nullptr);
    REALobjectStruct* const empty = foreign::make("NSImageZRX");
    EXPECT_EQ(colorWithPatternImage(empty), nullptr);
    foreign::unlock(empty);
    REALobjectStruct* const color = getredColor();
    EXPECT_EQ(colorWithPatternImage(color), nullptr);
    EXPECT_EQ(patternImage(color), nullptr);
    EXPECT_EQ(raisedOne().className, "NSExceptionZRX");
    foreign::unlock(color);
}

TEST_F(Patterns, OnHostsThatTellNoClassesNeedTheRegistry) {
    host.missing = {"ChromaObjectIsA"};
    EXPECT_EQ(colorWithPatternImage(object), nullptr);
    CFDictionarySetValue(native::Sibling::registry(), image, object);
    REALobjectStruct* const pattern = colorWithPatternImage(object);
    EXPECT_NE(pattern, nullptr);
    foreign::unlock(pattern);
    REALobjectStruct* const color = getredColor();
    EXPECT_EQ(colorWithPatternImage(color), nullptr); // registered, but no image
    foreign::unlock(color);
    drainPool();
}

TEST_F(Patterns, WithoutTheImageClassHaveNoImageObject) {
    REALobjectStruct* const pattern = colorWithPatternImage(object);
    host.exceptionClasses.erase("NSImageZRX");
    EXPECT_EQ(patternImage(pattern), nullptr);
    foreign::unlock(pattern);
    drainPool();
}

TEST_F(Factories, DerivedColoursLeaveTheirOriginAlone) {
    using Components = std::vector<double>;
    REALobjectStruct* const color = colorWithCalibratedRed(1.0, 0.5, 0.0, 1.0);
    REALobjectStruct* const blue = getblueColor();
    EXPECT_EQ(componentsOf(colorWithAlphaComponent(color, 0.5)), (Components{1.0, 0.5, 0.0, 0.5}));
    EXPECT_EQ(componentsOf(blendedColorWithFraction(color, 0.25, blue)), (Components{0.75, 0.375, 0.25, 1.0}));
    EXPECT_EQ(componentsOf(shadowWithLevel(color, 0.0)), (Components{1.0, 0.5, 0.0, 1.0}));
    const auto darker = componentsOf(shadowWithLevel(color, 0.5)), lighter = componentsOf(highlightWithLevel(color, 0.5));
    ASSERT_EQ(darker.size(), 4U);
    ASSERT_EQ(lighter.size(), 4U);
    EXPECT_LT(darker[0] + darker[1] + darker[2], 1.5);
    EXPECT_GT(lighter[0] + lighter[1] + lighter[2], 1.5);
    EXPECT_EQ(foreign::take(getComponents(color)), (Components{1.0, 0.5, 0.0, 1.0}));

    REALstringStruct* const cmykName = foreign::string("NSDeviceCMYKColorSpace");
    REALobjectStruct* const cmyk = colorUsingColorSpaceName(color, cmykName);
    EXPECT_EQ(numberOfComponents(cmyk, 0), 5);
    foreign::unlock(cmyk);
    foreign::unlock(cmykName);
    REALobjectStruct* const greySpace = space("genericGrayColorSpace");
    REALobjectStruct* const grey = colorUsingColorSpace(color, greySpace);
    EXPECT_EQ(numberOfComponents(grey, 0), 2);
    foreign::unlock(grey);
    foreign::unlock(greySpace);

    REALobjectStruct* const first = colorSpace(color);
    EXPECT_EQ(colorSpace(color), first);
    EXPECT_EQ(foreign::classOf(first), "NSColorSpaceZRX");
    foreign::unlock(first);
    foreign::unlock(first);
    foreign::unlock(blue);
    foreign::unlock(color);
}

TEST_F(Factories, DerivingFromOrWithNothingGivesNil) {
    REALobjectStruct* const color = colorWithCalibratedRed(1.0, 0.5, 0.0, 1.0);
    REALobjectStruct* const empty = foreign::make("NSColorZRX");
    EXPECT_EQ(blendedColorWithFraction(color, 0.5, nullptr), nullptr);
    using Components = std::vector<double>;
    EXPECT_EQ(componentsOf(colorUsingColorSpaceName(color, nullptr)),
              platform::expected(Difference::NilSpaceName, Components(), Components{1.0, 0.5, 0.0, 1.0}));
    EXPECT_EQ(componentsOf(colorUsingColorSpace(color, nullptr)),
              platform::expected(Difference::NilSpace, Components(), Components{0.5, 1.0}));
    REALstringStruct* const unknown = foreign::string("no such space");
    EXPECT_EQ(colorUsingColorSpaceName(color, unknown), nullptr);
    foreign::unlock(unknown);
    for (REALobjectStruct* const object : {empty, static_cast<REALobjectStruct*>(nullptr)}) {
        EXPECT_EQ(blendedColorWithFraction(object, 0.5, color), nullptr);
        EXPECT_EQ(colorWithAlphaComponent(object, 0.5), nullptr);
        EXPECT_EQ(shadowWithLevel(object, 0.5), nullptr);
        EXPECT_EQ(highlightWithLevel(object, 0.5), nullptr);
        EXPECT_EQ(colorSpace(object), nullptr);
        EXPECT_EQ(patternImage(object), nullptr);
    }
    foreign::unlock(empty);
    foreign::unlock(color);
}

TEST_F(Factories, AMessageThatThePlatformLacksBecomesAHostException) {
    const char* const message = "scrubberTexturedBackgroundColor";
    const bool isMissing = platform::lacks("+", message);
    if (!isMissing)
        native::replace(
            native::object_getClass(native::classNamed("NSColor")), message,
            +[](id self, SEL) -> id { return native::tell(self, "aMessageNobodyKnows"); });
    EXPECT_EQ(scrubberTexturedBackgroundColor(), nullptr);
    expectUnrecognized(isMissing ? message : "aMessageNobodyKnows");
}

// Colours: which messages each kind responds to, names, descriptions, patterns, the named colours.
#include "support/native.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

using namespace chroma;
using namespace chroma::test;

using Colors = PlatformTest;

namespace {

id image() { return created("NSImage", "initWithSize:", Size{8, 4}); }
id patternOf(id image) { return color("colorWithPatternImage:", image); }
id calibratedWhite(float white, float alpha) { return color("colorWithCalibratedWhite:alpha:", white, alpha); }

id deviceRGB(float red, float green, float blue, float alpha) {
    return color("colorWithDeviceRed:green:blue:alpha:", red, green, blue, alpha);
}

id deviceCMYK(float cyan, float magenta, float yellow, float black, float alpha) {
    return color("colorWithDeviceCyan:magenta:yellow:black:alpha:", cyan, magenta, yellow, black, alpha);
}

} // namespace

TEST_F(Colors, RaiseForUnsupportedMessages) {
    const id grey = calibratedWhite(0.5f, 1), catalog = color("controlColor"), red = color("redColor");
    id exception = nullptr;
    {
        const Pool inner; // destroys the colour before the message is built, which happens on first use
        const id destroyed = calibratedWhite(0.5f, 1);
        exception = send(caught([&] { send<CGFloat>(destroyed, "redComponent"); }), "retain");
    }
    EXPECT_EQ(textOf(send(exception, "name")), "NSInvalidArgumentException");
    EXPECT_EQ(textOf(send(exception, "reason")), "*** -redComponent not valid for the NSColor "
                                                 "NSCalibratedWhiteColorSpace 0.5 1; need to first convert colorspace.");
    EXPECT_EQ(send(exception, "reason"), send(exception, "reason"));
    CFRelease(exception);
    CGFloat sink[5];
    CGFloat* const out = sink;
    EXPECT_TRUE(refuses([&] { send<void>(grey, "getRed:green:blue:alpha:", out, out, out, out); }));
    EXPECT_TRUE(refuses([&] { send<void>(red, "getWhite:alpha:", out, out); }));
    EXPECT_TRUE(refuses([&] { send<void>(catalog, "getComponents:", out); }));
    EXPECT_TRUE(refuses([&] { patternOf(string("no image")); }));
    const id space = standardSpace("genericGrayColorSpace");
    const auto fromHue = [](id any) {
        return color("colorWithColorSpace:hue:saturation:brightness:alpha:", any, 1 / 3.f, 1.f, 1.f, 0.5f);
    };
    EXPECT_EQ(textOf(send(caught([&] { colorIn(space, {1}); }), "reason")),
              "*** invalid number of components for colorspace in initWithColorSpace:components:count: (1 instead of 2)");
    EXPECT_TRUE(refuses([&] { colorIn(space, {1, 1, 1}); }));
    EXPECT_TRUE(refuses([&] { colorIn(nullptr, {1, 1}); }));
    EXPECT_TRUE(refuses([&] { colorIn(red, {1, 1}); }));
    EXPECT_TRUE(refuses([&] { fromHue(space); }));
    EXPECT_TRUE(refuses([&] { fromHue(nullptr); }));
    expectNear(componentsOf(fromHue(standardSpace("adobeRGB1998ColorSpace"))), {0, 1, 0, 0.5f}, 1e-7);
    EXPECT_EQ(patternOf(nullptr), nullptr);
    const std::pair<id, std::vector<const char*>> unsupported[] = {
        {catalog, {"numberOfComponents", "colorSpace", "patternImage"}},
        {patternOf(image()), {"numberOfComponents", "colorSpace", "colorNameComponent"}},
        {red, {"colorNameComponent", "localizedColorNameComponent", "catalogNameComponent", "patternImage"}}};
    for (const auto& [color, messages] : unsupported) {
        for (const char* const message : messages)
            EXPECT_TRUE(refuses([&, color = color] { send(color, message); })) << textOf(color) << " " << message;
    }
}

TEST_F(Colors, DescriptionsHaveTheSpaceAndSixDigitsPerComponent) {
    const auto fromHue = [](CGFloat hue, CGFloat saturation, CGFloat brightness) {
        return color("colorWithCalibratedHue:saturation:brightness:alpha:", hue, saturation, brightness, 1.f);
    };
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const id srgb = standardSpace("sRGBColorSpace"), grey = standardSpace("genericGrayColorSpace");
    const std::pair<id, const char*> cases[] = {
        // Calibrated spaces accept any component. Device spaces clip components.
        {calibratedRGB(2.5f, -0.5f, 0, 7), "NSCalibratedRGBColorSpace 2.5 -0.5 0 7"},
        {calibratedRGB(0.1f, 1 / 3.f, 1e-9f), "NSCalibratedRGBColorSpace 0.1 0.333333 1e-09 1"},
        {calibratedWhite(1.5f, -1), "NSCalibratedWhiteColorSpace 1.5 -1"},
        {deviceRGB(2.5f, -0.5f, 0.5f, 7), "NSDeviceRGBColorSpace 1 0 0.5 1"},
        {deviceRGB(nan, 0, 0, nan), "NSDeviceRGBColorSpace 0 0 0 0"},
        {deviceCMYK(-1, 2, 0.5f, 0.25f, 3), "NSDeviceCMYKColorSpace 0 1 0.5 0.25 1"},
        {colorIn(standardSpace("deviceGrayColorSpace"), {-1, 7}), "NSDeviceWhiteColorSpace 0 1"},
        {calibratedRGB(-nan, 0, 0), "NSCalibratedRGBColorSpace nan 0 0 1"},
        {colorIn(srgb, {1, 0, 0, 1}), "NSCustomColorSpace sRGB IEC61966-2.1 colorspace 1 0 0 1"},
        {colorIn(grey, {0.25f, 2}), "NSCalibratedWhiteColorSpace 0.25 2"},
        // Hue, saturation and brightness are clipped.
        {fromHue(0, 1, 1), "NSCalibratedRGBColorSpace 1 0 0 1"},
        {fromHue(1 / 3.f, 1, 1), "NSCalibratedRGBColorSpace 0 1 0 1"},
        {fromHue(2 / 3.f, 1, 1), "NSCalibratedRGBColorSpace 0 0 1 1"},
        {fromHue(0.25f, 0.5f, 0.8f), "NSCalibratedRGBColorSpace 0.6 0.8 0.4 1"},
        {fromHue(0.3f, 0, 0.8f), "NSCalibratedRGBColorSpace 0.8 0.8 0.8 1"},
        {color("colorWithDeviceHue:saturation:brightness:alpha:", 0.f, 1.f, 1.f, 7.f), "NSDeviceRGBColorSpace 1 0 0 1"},
        {fromHue(2, 3, -1), "NSCalibratedRGBColorSpace 0 0 0 1"},
        {color("controlColor"), "Catalog color: System controlColor"},
        {color("orangeColor"), "NSCalibratedRGBColorSpace 1 0.5 0 1"},
        {color("lightGrayColor"), "NSCalibratedWhiteColorSpace 0.666667 1"},
        {color("clearColor"), "NSCalibratedWhiteColorSpace 0 0"}};
    for (const auto& [color, description] : cases)
        EXPECT_TRUE(isEqual(send(color, "description"), string(description))) << textOf(color) << " for " << description;
    EXPECT_TRUE(std::isnan(componentsOf(calibratedRGB(nan, 0, 0))[0]));

    for (const auto& rgb :
         {std::vector{0.9f, 0.1f, 0.3f}, {0.2f, 0.7f, 0.71f}, {0.33f, 0.34f, 0.99f}, {1.f, 1.f, 0.f}, {0.1f, 0.2f, 0.9f}}) {
        CGFloat h, s, b, alpha;
        send<void>(calibratedRGB(rgb[0], rgb[1], rgb[2], 0.5f), "getHue:saturation:brightness:alpha:", &h, &s, &b, &alpha);
        expectNear(componentsOf(fromHue(h, s, b)), {rgb[0], rgb[1], rgb[2], 1}, 3e-7);
        EXPECT_EQ(alpha, 0.5f);
    }
}

TEST_F(Colors, CompareEqualIfSpaceAndComponentsAreEqual) {
    const id rgb = calibratedRGB(1, 0.5f, 0), catalog = color("textColor"), tile = image(), pattern = patternOf(tile);
    const id strange = calibratedRGB(std::numeric_limits<float>::quiet_NaN(), 0, 0);
    EXPECT_TRUE(isEqual(strange, strange));
    EXPECT_EQ(color("colorWithCGColor:", send(catalog, "CGColor")), catalog) << "catalog colours are single objects";
    for (const id color : {rgb, catalog, pattern})
        EXPECT_TRUE(isEqual(color, test::color("colorWithCGColor:", send(color, "CGColor")))) << textOf(color);
    EXPECT_EQ(color("colorWithCGColor:", id{}), nullptr);
    EXPECT_TRUE(isEqual(rgb, colorIn(standardSpace("genericRGBColorSpace"), {1, 0.5f, 0, 1})));
    EXPECT_TRUE(isEqual(pattern, patternOf(tile)));
    for (const id other : {calibratedRGB(1, 0.5f, 0, 0.5f), deviceRGB(1, 0.5f, 0, 1), string("1 0.5 0 1"), catalog})
        EXPECT_FALSE(isEqual(rgb, other));
    EXPECT_FALSE(isEqual(catalog, color("controlTextColor")));
    EXPECT_FALSE(isEqual(pattern, patternOf(image())));
    EXPECT_EQ(send(pattern, "patternImage"), tile);
    EXPECT_EQ(send<Size>(tile, "size").width, 8);
    EXPECT_EQ(send<Size>(tile, "size").height, 4);
}

// The values of macOS 11, as designers publish them.
TEST_F(Colors, MatchPublishedCatalogValuesInBothAppearances) {
    const struct {
        const char* name;
        std::vector<float> light, dark; // 8-bit sRGB and alpha
    } published[] = {{"selectedTextBackgroundColor", {179, 215, 255, 1}, {63, 99, 139, 1}},
                     {"windowBackgroundColor", {236, 236, 236, 1}, {50, 50, 50, 1}},
                     {"keyboardFocusIndicatorColor", {0, 103, 244, 0.25f}, {26, 169, 255, 0.3f}},
                     {"controlTextColor", {0, 0, 0, 0.85f}, {255, 255, 255, 0.85f}},
                     {"disabledControlTextColor", {0, 0, 0, 0.25f}, {255, 255, 255, 0.25f}}};
    for (const bool isDark : {false, true}) {
        if (isDark) setenv("CHROMABRIDGE_APPEARANCE", "dark", 1);
        for (const auto& [name, light, dark] : published) {
            std::vector<float> expected = isDark ? dark : light;
            std::for_each(expected.begin(), expected.end() - 1, [](float& level) { level /= 255; });
            expectNear(componentsOf(inSpace(color(name), "sRGBColorSpace")), expected, 1e-6);
            EXPECT_FLOAT_EQ(static_cast<float>(send<CGFloat>(color(name), "alphaComponent")), expected[3]) << name;
        }
    }
    unsetenv("CHROMABRIDGE_APPEARANCE");
    EXPECT_EQ(send<CGFloat>(patternOf(image()), "alphaComponent"), 1);
}

TEST_F(Colors, RoundTripThroughThePasteboard) {
    const id pasteboard = sendClass("NSPasteboard", "generalPasteboard");
    for (const id copied : {calibratedRGB(0.1f, 2, -1, 0.5f), color("textColor"), patternOf(image())}) {
        send<void>(copied, "writeToPasteboard:", pasteboard);
        EXPECT_TRUE(isEqual(color("colorFromPasteboard:", pasteboard), copied));
    }
    send<void>(pasteboard, "clearContents");
    for (const id none : {pasteboard, id{}})
        EXPECT_EQ(color("colorFromPasteboard:", none), nullptr);
}

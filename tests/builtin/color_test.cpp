// Colours: who answers what, names, descriptions, the named colours.
#include "support/native.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace chroma;
using namespace chroma::test;

namespace {

id calibratedWhite(float white, float alpha) {
    return sendClass("NSColor", "colorWithCalibratedWhite:alpha:", white, alpha);
}

id deviceRGB(float red, float green, float blue, float alpha) {
    return sendClass("NSColor", "colorWithDeviceRed:green:blue:alpha:", red, green, blue, alpha);
}

id deviceCMYK(float cyan, float magenta, float yellow, float black, float alpha) {
    return sendClass("NSColor", "colorWithDeviceCyan:magenta:yellow:black:alpha:", cyan, magenta, yellow, black, alpha);
}

// "name of the kind of space: the component messages that the colour answers".
std::string answersOf(id color) {
    std::string answers = textOf(send(color, "colorSpaceName")) + ":";
    for (const char* const message : {"red", "green", "blue", "hue", "saturation", "brightness", "white", "cyan", "magenta",
                                      "yellow", "black", "alpha"}) {
        const std::string selector = std::string(message) + "Component";
        if (!caught([&] { send<float>(color, selector.c_str()); })) answers += std::string(" ") + message;
    }
    return answers;
}

} // namespace

TEST(Colors, AnswerTheComponentsOfTheirOwnFamily) {
    const Pool pool;
    const std::string rgb = ": red green blue hue saturation brightness alpha";
    EXPECT_EQ(answersOf(calibratedRGB(1, 0, 0)), "NSCalibratedRGBColorSpace" + rgb);
    EXPECT_EQ(answersOf(deviceRGB(1, 0, 0, 1)), "NSDeviceRGBColorSpace" + rgb);
    EXPECT_EQ(answersOf(colorIn(standardSpace("sRGBColorSpace"), {1, 0, 0, 1})), "NSCustomColorSpace" + rgb);
    EXPECT_EQ(answersOf(calibratedWhite(1, 1)), "NSCalibratedWhiteColorSpace: white alpha");
    EXPECT_EQ(answersOf(sendClass("NSColor", "colorWithDeviceWhite:alpha:", 1.f, 1.f)),
              "NSDeviceWhiteColorSpace: white alpha");
    EXPECT_EQ(answersOf(deviceCMYK(0, 0, 0, 0, 1)), "NSDeviceCMYKColorSpace: cyan magenta yellow black alpha");
    EXPECT_EQ(answersOf(sendClass("NSColor", "controlColor")), "NSNamedColorSpace:");
}

TEST(Colors, RaiseForOtherComponentsWithSelectorAndDescription) {
    const Pool pool;
    const id grey = calibratedWhite(0.5f, 1);
    EXPECT_EQ(raised([&] { send<float>(grey, "redComponent"); }),
              "NSInvalidArgumentException: *** -[NSColor redComponent] not valid for the NSColor "
              "NSCalibratedWhiteColorSpace 0.5 1; need to first convert colorspace.");
    float sink[5];
    float* const out = sink;
    EXPECT_TRUE(
        raises("NSInvalidArgumentException", [&] { send<void>(grey, "getRed:green:blue:alpha:", out, out, out, out); }));
    EXPECT_TRUE(
        raises("NSInvalidArgumentException", [&] { send<void>(calibratedRGB(1, 0, 0), "getWhite:alpha:", out, out); }));
    const id catalog = sendClass("NSColor", "controlColor");
    for (const char* const message : {"numberOfComponents", "colorSpace"}) {
        EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { send(catalog, message); })) << message;
    }
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { send<void>(catalog, "getComponents:", out); }));
}

TEST(Colors, ReadOutInOneGoAndSkipNullOutputs) {
    const Pool pool;
    float* const none = nullptr;
    float a = 9, b = 9, c = 9;
    send<void>(calibratedRGB(0.25f, 0.5f, 0.75f, 0.125f), "getRed:green:blue:alpha:", &a, none, &b, &c);
    EXPECT_EQ(std::vector({a, b, c}), std::vector({0.25f, 0.75f, 0.125f}));
    send<void>(calibratedWhite(0.25f, 0.5f), "getWhite:alpha:", none, &a);
    EXPECT_EQ(a, 0.5f);
    send<void>(deviceCMYK(0.1f, 0.2f, 0.3f, 0.4f, 0.5f), "getCyan:magenta:yellow:black:alpha:", none, &a, none, &b, &c);
    EXPECT_EQ(std::vector({a, b, c}), std::vector({0.2f, 0.4f, 0.5f}));
    EXPECT_EQ(componentsOf(deviceCMYK(0.1f, 0.2f, 0.3f, 0.4f, 0.5f)), std::vector({0.1f, 0.2f, 0.3f, 0.4f, 0.5f}));
    EXPECT_EQ(componentsOf(calibratedWhite(0.25f, 0.5f)), std::vector({0.25f, 0.5f}));
}

TEST(Colors, CalibratedOnesTakeAnyComponentDeviceOnesClip) {
    const Pool pool;
    EXPECT_EQ(componentsOf(calibratedRGB(2.5f, -0.5f, 0, 7)), std::vector({2.5f, -0.5f, 0.f, 7.f}));
    EXPECT_EQ(componentsOf(calibratedWhite(1.5f, -1)), std::vector({1.5f, -1.f}));
    EXPECT_EQ(componentsOf(deviceRGB(2.5f, -0.5f, 0.5f, 7)), std::vector({1.f, 0.f, 0.5f, 1.f}));
    EXPECT_EQ(componentsOf(deviceCMYK(-1, 2, 0.5f, 0, 3)), std::vector({0.f, 1.f, 0.5f, 0.f, 1.f}));
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(std::isnan(componentsOf(calibratedRGB(nan, 0, 0))[0]));
    EXPECT_EQ(componentsOf(deviceRGB(nan, 0, 0, nan)), std::vector({0.f, 0.f, 0.f, 0.f}));
}

TEST(Colors, HueSaturationAndBrightnessAreAnotherWayToWriteRGB) {
    const Pool pool;
    const auto fromHue = [](float hue, float saturation, float brightness) {
        return sendClass("NSColor", "colorWithCalibratedHue:saturation:brightness:alpha:", hue, saturation, brightness, 1.f);
    };
    EXPECT_EQ(componentsOf(fromHue(0, 1, 1)), std::vector({1.f, 0.f, 0.f, 1.f}));
    EXPECT_EQ(componentsOf(fromHue(2 / 3.f, 1, 0.5f))[2], 0.5f);
    EXPECT_EQ(componentsOf(fromHue(0.25f, 0.5f, 0.8f)), std::vector({0.6f, 0.8f, 0.4f, 1.f}));
    EXPECT_EQ(componentsOf(fromHue(0.3f, 0, 0.8f)), std::vector({0.8f, 0.8f, 0.8f, 1.f}));
    EXPECT_EQ(componentsOf(fromHue(2, 3, -1)), std::vector({0.f, 0.f, 0.f, 1.f})) << "all three are clipped";

    for (const auto& rgb : {std::array{0.9f, 0.1f, 0.3f}, {0.2f, 0.7f, 0.71f}, {0.33f, 0.34f, 0.99f}, {1.f, 1.f, 0.f}}) {
        float h, s, b, alpha;
        send<void>(calibratedRGB(rgb[0], rgb[1], rgb[2], 0.5f), "getHue:saturation:brightness:alpha:", &h, &s, &b, &alpha);
        const std::vector<float> back = componentsOf(fromHue(h, s, b));
        for (std::size_t index = 0; index < 3; ++index) {
            EXPECT_NEAR(back[index], rgb[index], 3e-7) << h << " " << s << " " << b;
        }
        EXPECT_EQ(alpha, 0.5f);
    }
}

TEST(Colors, AreDescribedByTheirSpaceAndShortestComponents) {
    const Pool pool;
    const auto description = [](id color) { return textOf(send(color, "description")); };
    EXPECT_EQ(description(calibratedRGB(1, 0.5f, 0, 0.25f)), "NSCalibratedRGBColorSpace 1 0.5 0 0.25");
    EXPECT_EQ(description(calibratedRGB(0.1f, 1 / 3.f, 1e-9f)), "NSCalibratedRGBColorSpace 0.1 0.33333334 1e-09 1");
    EXPECT_EQ(description(colorIn(standardSpace("sRGBColorSpace"), {1, 0, 0, 1})),
              "NSCustomColorSpace sRGB IEC61966-2.1 colorspace 1 0 0 1");
    EXPECT_EQ(description(sendClass("NSColor", "controlColor")), "Catalog color: System controlColor");
}

TEST(Colors, AreEqualWhenSpaceAndComponentsAre) {
    const Pool pool;
    const id color = calibratedRGB(1, 0.5f, 0);
    const auto isEqual = [](id first, id second) { return send<BOOL>(first, "isEqual:", second) != 0; };
    EXPECT_TRUE(isEqual(color, colorIn(standardSpace("genericRGBColorSpace"), {1, 0.5f, 0, 1})));
    EXPECT_TRUE(isEqual(color, sendClass("NSColor", "colorWithCGColor:", send(color, "CGColor"))));
    EXPECT_FALSE(isEqual(color, calibratedRGB(1, 0.5f, 0, 0.5f)));
    EXPECT_FALSE(isEqual(color, deviceRGB(1, 0.5f, 0, 1)));
    EXPECT_FALSE(isEqual(color, string("1 0.5 0 1")));
    const id catalog = sendClass("NSColor", "textColor");
    EXPECT_TRUE(isEqual(catalog, sendClass("NSColor", "colorWithCGColor:", send(catalog, "CGColor"))));
    EXPECT_FALSE(isEqual(catalog, sendClass("NSColor", "controlTextColor")));
    EXPECT_EQ(sendClass("NSColor", "colorWithCGColor:", id{}), nullptr);
}

TEST(Colors, AHandleLivesAsLongAsItsColor) {
    Pool pool;
    const id color = send(calibratedRGB(1, 0.5f, 0), "retain");
    const id handle = send(color, "CGColor");
    pool.drain();
    EXPECT_EQ(send(color, "CGColor"), handle);
    EXPECT_EQ(builtin_liveInstances("CGColor"), 1u);
    send<void>(color, "release");
    EXPECT_EQ(builtin_liveInstances("CGColor"), 0u);
}

TEST(Colors, NamedOnesAreSingleObjects) {
    const Pool pool;
    EXPECT_EQ(sendClass("NSColor", "redColor"), sendClass("NSColor", "redColor"));
    EXPECT_EQ(sendClass("NSColor", "gridColor"), sendClass("NSColor", "gridColor"));
    EXPECT_EQ(textOf(send(sendClass("NSColor", "orangeColor"), "description")), "NSCalibratedRGBColorSpace 1 0.5 0 1");
    EXPECT_EQ(componentsOf(sendClass("NSColor", "lightGrayColor")), std::vector({2 / 3.f, 1.f}));
    EXPECT_EQ(componentsOf(sendClass("NSColor", "clearColor")), std::vector({0.f, 0.f}));
}

TEST(Colors, OnlyCatalogColorsHaveNames) {
    const Pool pool;
    for (const char* const message : {"catalogNameComponent", "localizedCatalogNameComponent"}) {
        EXPECT_EQ(textOf(send(sendClass("NSColor", "headerColor"), message)), "System");
    }
    for (const char* const message : {"colorNameComponent", "localizedColorNameComponent"}) {
        EXPECT_EQ(textOf(send(sendClass("NSColor", "headerColor"), message)), "headerColor");
        EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { send(sendClass("NSColor", "redColor"), message); }));
    }
}

TEST(Colors, TakeAsManyComponentsAsTheSpaceHasAndAlpha) {
    const Pool pool;
    const id grey = standardSpace("genericGrayColorSpace");
    EXPECT_EQ(componentsOf(colorIn(grey, {0.25f, 2})), std::vector({0.25f, 2.f}));
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { colorIn(grey, {1}); }));
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { colorIn(grey, {1, 1, 1}); }));
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { colorIn(nullptr, {1, 1}); }));
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { colorIn(string("no space"), {1, 1}); }));

    const auto fromHue = [](id space) {
        return sendClass("NSColor", "colorWithColorSpace:hue:saturation:brightness:alpha:", space, 1 / 3.f, 1.f, 1.f, 0.5f);
    };
    const id adobe = standardSpace("adobeRGB1998ColorSpace");
    EXPECT_EQ(send(fromHue(adobe), "colorSpace"), adobe);
    EXPECT_NEAR(componentsOf(fromHue(adobe))[1], 1, 1e-7);
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { fromHue(grey); }));
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { fromHue(nullptr); }));
}

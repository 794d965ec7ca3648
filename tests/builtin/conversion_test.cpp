// Conversions between colour spaces, against numbers that were calculated elsewhere from published matrices.
#include "support/native.h"

#include <gtest/gtest.h>

using namespace chroma;
using namespace chroma::test;

namespace {

id inSpace(id color, const char* space) { return send(color, "colorUsingColorSpace:", standardSpace(space)); }

id named(id color, const char* name) { return send(color, "colorUsingColorSpaceName:", string(name)); }

void expectNear(const std::vector<float>& actual, const std::vector<float>& expected, double tolerance) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t index = 0; index < actual.size(); ++index) {
        EXPECT_NEAR(actual[index], expected[index], tolerance) << "component " << index;
    }
}

id deviceCMYK(float cyan, float magenta, float yellow, float black, float alpha) {
    return sendClass("NSColor", "colorWithDeviceCyan:magenta:yellow:black:alpha:", cyan, magenta, yellow, black, alpha);
}

} // namespace

TEST(Conversions, BetweenRGBSpacesMatchPublishedNumbers) {
    const Pool pool;
    const id srgb = standardSpace("sRGBColorSpace");
    const id color = colorIn(srgb, {0.8f, 0.5f, 0.25f, 0.75f});
    expectNear(componentsOf(inSpace(color, "genericRGBColorSpace")), {0.74954f, 0.42100f, 0.19419f, 0.75f}, 3e-4);
    expectNear(componentsOf(inSpace(color, "adobeRGB1998ColorSpace")), {0.72486f, 0.49610f, 0.27311f, 0.75f}, 3e-5);
    expectNear(componentsOf(inSpace(colorIn(srgb, {1, 0, 0, 1}), "displayP3ColorSpace")), {0.9175f, 0.2003f, 0.1386f, 1},
               1e-4);
    expectNear(componentsOf(inSpace(colorIn(srgb, {0, 1, 0, 1}), "displayP3ColorSpace")), {0.4584f, 0.9853f, 0.2983f, 1},
               1e-4);
    // Device RGB stands for a display with the primaries and curve of sRGB.
    expectNear(componentsOf(inSpace(color, "deviceRGBColorSpace")), {0.8f, 0.5f, 0.25f, 0.75f}, 1e-7);
}

TEST(Conversions, ToGreyTakeTheLuminance) {
    const Pool pool;
    const id color = colorIn(standardSpace("sRGBColorSpace"), {0.8f, 0.5f, 0.25f, 0.75f});
    expectNear(componentsOf(inSpace(color, "genericGamma22GrayColorSpace")), {0.57047f, 0.75f}, 1e-4);
    expectNear(componentsOf(inSpace(color, "genericGrayColorSpace")), {0.50357f, 0.75f}, 1e-4);
}

TEST(Conversions, KeepGreysGreyToTheLastBit) {
    const Pool pool;
    for (const float white : {0.f, 0.1f, 1 / 3.f, 0.5f, 0.7f, 1.f}) {
        const id grey = sendClass("NSColor", "colorWithCalibratedWhite:alpha:", white, 0.5f);
        EXPECT_EQ(componentsOf(named(grey, "NSCalibratedRGBColorSpace")), std::vector({white, white, white, 0.5f}));
        for (const char* const space : {"sRGBColorSpace", "adobeRGB1998ColorSpace", "displayP3ColorSpace"}) {
            const std::vector<float> rgb = componentsOf(inSpace(grey, space));
            EXPECT_FLOAT_EQ(rgb[0], rgb[1]) << space;
            EXPECT_FLOAT_EQ(rgb[1], rgb[2]) << space;
        }
    }
    const id white = sendClass("NSColor", "whiteColor");
    for (const char* const space :
         {"sRGBColorSpace", "adobeRGB1998ColorSpace", "displayP3ColorSpace", "deviceRGBColorSpace"}) {
        EXPECT_EQ(componentsOf(inSpace(white, space)), std::vector(4, 1.f)) << space;
    }
}

TEST(Conversions, ComeBackWithinTheGamut) {
    const Pool pool;
    const std::vector<float> start{0.8f, 0.5f, 0.25f, 1};
    id color = colorIn(standardSpace("sRGBColorSpace"), {0.8f, 0.5f, 0.25f, 1});
    for (const char* const space :
         {"displayP3ColorSpace", "adobeRGB1998ColorSpace", "genericRGBColorSpace", "sRGBColorSpace"}) {
        color = inSpace(color, space);
        ASSERT_EQ(send(color, "colorSpace"), standardSpace(space));
    }
    expectNear(componentsOf(color), start, 1e-6);
}

TEST(Conversions, ClipWhatTheTargetCannotShow) {
    const Pool pool;
    const id vivid = colorIn(standardSpace("displayP3ColorSpace"), {0, 1, 0, 1});
    expectNear(componentsOf(inSpace(vivid, "sRGBColorSpace")), {0, 1, 0, 1}, 0);
    expectNear(componentsOf(named(calibratedRGB(3, 3, 3, 2), "NSDeviceRGBColorSpace")), {1, 1, 1, 2}, 0);
    EXPECT_EQ(componentsOf(named(calibratedRGB(3, -1, 0), "NSCalibratedRGBColorSpace"))[0], 3)
        << "one space: nothing is done";
}

TEST(Conversions, CMYKIsTheComplementWithFullBlack) {
    const Pool pool;
    const id rgb = sendClass("NSColor", "colorWithDeviceRed:green:blue:alpha:", 0.8f, 0.4f, 0.2f, 0.5f);
    expectNear(componentsOf(named(rgb, "NSDeviceCMYKColorSpace")), {0, 0.5f, 0.75f, 0.2f, 0.5f}, 1e-7);
    EXPECT_EQ(componentsOf(named(deviceCMYK(0, 1, 1, 0, 1), "NSDeviceRGBColorSpace")), std::vector({1.f, 0.f, 0.f, 1.f}));
    EXPECT_EQ(componentsOf(named(deviceCMYK(0.5f, 0, 1, 0.5f, 1), "NSDeviceRGBColorSpace")),
              std::vector({0.25f, 0.5f, 0.f, 1.f}));
    EXPECT_EQ(componentsOf(named(sendClass("NSColor", "blackColor"), "NSDeviceCMYKColorSpace")),
              std::vector({0.f, 0.f, 0.f, 1.f, 1.f}));
}

TEST(Conversions, AnswerTheReceiverWhenThereIsNothingToDo) {
    const Pool pool;
    const id color = calibratedRGB(1, 0.5f, 0);
    EXPECT_EQ(named(color, "NSCalibratedRGBColorSpace"), color);
    EXPECT_EQ(inSpace(color, "genericRGBColorSpace"), color);
    const id catalog = sendClass("NSColor", "controlColor");
    EXPECT_EQ(named(catalog, "NSNamedColorSpace"), catalog);
    const id custom = colorIn(standardSpace("sRGBColorSpace"), {0, 0, 0, 1});
    EXPECT_EQ(named(custom, "NSCustomColorSpace"), custom);
}

TEST(Conversions, AnswerNilForWhatIsNoTarget) {
    const Pool pool;
    const id color = calibratedRGB(1, 0.5f, 0);
    for (const char* const name :
         {"", "NoSuchColorSpace", "NSNamedColorSpace", "NSPatternColorSpace", "NSCustomColorSpace"}) {
        EXPECT_EQ(named(color, name), nullptr) << name;
    }
    EXPECT_EQ(send(color, "colorUsingColorSpaceName:", id{}), nullptr);
    EXPECT_EQ(send(color, "colorUsingColorSpace:", id{}), nullptr);
}

TEST(Conversions, ResolveCatalogColors) {
    const Pool pool;
    const id resolved = named(sendClass("NSColor", "selectedControlColor"), "NSCalibratedRGBColorSpace");
    EXPECT_EQ(textOf(send(resolved, "colorSpaceName")), "NSCalibratedRGBColorSpace");
    EXPECT_GT(componentsOf(resolved)[2], componentsOf(resolved)[0]) << "a selection is bluish";
    EXPECT_EQ(componentsOf(named(sendClass("NSColor", "textColor"), "NSCalibratedWhiteColorSpace")),
              std::vector({0.f, 1.f}));
}

TEST(Derived, AlphaIsClippedAndTheRestKept) {
    const Pool pool;
    const id color = calibratedRGB(0.25f, 2, 0);
    EXPECT_EQ(componentsOf(send(color, "colorWithAlphaComponent:", 0.5f)), std::vector({0.25f, 2.f, 0.f, 0.5f}));
    EXPECT_EQ(componentsOf(send(color, "colorWithAlphaComponent:", 7.f))[3], 1);
    EXPECT_EQ(componentsOf(color)[3], 1) << "the colour itself does not change";
    const id resolved = send(sendClass("NSColor", "textColor"), "colorWithAlphaComponent:", 0.25f);
    EXPECT_EQ(componentsOf(resolved), std::vector({0.f, 0.25f}));
}

TEST(Derived, BlendsMixInCalibratedRGB) {
    const Pool pool;
    const auto blend = [](id color, float fraction, id other) {
        return send(color, "blendedColorWithFraction:ofColor:", fraction, other);
    };
    const id color = calibratedRGB(1, 0.5f, 0, 0.5f);
    expectNear(componentsOf(blend(color, 0.25f, sendClass("NSColor", "whiteColor"))), {1, 0.625f, 0.25f, 0.625f}, 1e-7);
    const id mixed = blend(sendClass("NSColor", "blackColor"), 0.5f, sendClass("NSColor", "whiteColor"));
    EXPECT_EQ(textOf(send(mixed, "description")), "NSCalibratedRGBColorSpace 0.5 0.5 0.5 1");
    EXPECT_EQ(blend(color, 0.5f, nullptr), nullptr);
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { blend(color, 0.5f, string("no colour")); }));
    expectNear(componentsOf(send(color, "highlightWithLevel:", 0.5f)), {1, 0.75f, 0.5f, 0.75f}, 1e-7);
    expectNear(componentsOf(send(color, "shadowWithLevel:", 0.5f)), {0.5f, 0.25f, 0, 0.75f}, 1e-7);
    expectNear(componentsOf(send(color, "shadowWithLevel:", 5.f)), {0, 0, 0, 1}, 0);
}

TEST(Spaces, NamedOnesAreSingleObjectsThatKnowThemselves) {
    const Pool pool;
    struct Expected {
        const char* message;
        const char* name;
        std::intptr_t model;
        std::intptr_t channels;
    };
    for (const Expected& expected : {Expected{"genericRGBColorSpace", "Generic RGB Profile", 1, 3},
                                     Expected{"deviceGrayColorSpace", "Device Gray", 0, 1},
                                     Expected{"genericCMYKColorSpace", "Generic CMYK Profile", 2, 4}}) {
        const id space = standardSpace(expected.message);
        EXPECT_EQ(space, standardSpace(expected.message));
        EXPECT_EQ(textOf(send(space, "localizedName")), expected.name);
        EXPECT_EQ(send<std::intptr_t>(space, "colorSpaceModel"), expected.model);
        EXPECT_EQ(send<std::intptr_t>(space, "numberOfColorComponents"), expected.channels);
    }
    EXPECT_EQ(send(calibratedRGB(1, 0, 0), "colorSpace"), standardSpace("genericRGBColorSpace"));
}

TEST(Spaces, AreFoundByNameAndByModel) {
    const Pool pool;
    const auto forName = [](id name) { return sendClass("NSColorSpace", "colorSpaceForColorSpaceName:", name); };
    EXPECT_EQ(forName(NSCalibratedBlackColorSpace), standardSpace("genericGrayColorSpace"));
    EXPECT_EQ(forName(string("NSDeviceCMYKColorSpace")), standardSpace("deviceCMYKColorSpace"));
    EXPECT_EQ(forName(NSCustomColorSpace), nullptr);
    EXPECT_EQ(forName(nullptr), nullptr);

    const auto available = [](std::intptr_t model) {
        return sendClass("NSColorSpace", "availableColorSpacesWithModel:", model);
    };
    const id greys = send(available(0), "objectEnumerator");
    std::size_t count = 0;
    while (const id space = send(greys, "nextObject")) {
        EXPECT_EQ(send<std::intptr_t>(space, "colorSpaceModel"), 0);
        ++count;
    }
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(send<std::uintptr_t>(available(17), "count"), 0u);
}

TEST(Spaces, GoThroughTheirHandles) {
    Pool pool;
    const id space = standardSpace("adobeRGB1998ColorSpace");
    const id handle = send(space, "CGColorSpace");
    const id same = send(send(sendClass("NSColorSpace", "alloc"), "initWithCGColorSpace:", handle), "autorelease");
    EXPECT_NE(same, space);
    EXPECT_TRUE(send<BOOL>(same, "isEqual:", space));
    EXPECT_EQ(textOf(send(same, "localizedName")), "Adobe RGB (1998)");
    const id color = colorIn(space, {1, 0.5f, 0, 1});
    EXPECT_EQ(send(color, "colorUsingColorSpace:", same), color);

    for (const id wrong : {id{}, send(color, "CGColor"), id{color}}) {
        EXPECT_EQ(send(sendClass("NSColorSpace", "alloc"), "initWithCGColorSpace:", wrong), nullptr);
    }
    pool.drain();
    EXPECT_EQ(builtin_liveInstances("NSColorSpace"), 0u);
}

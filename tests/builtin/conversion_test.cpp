// Conversions between colour spaces, compared with values calculated elsewhere from published matrices.
#include "support/native.h"

using namespace chroma;
using namespace chroma::test;

using Conversions = PlatformTest;

namespace {

id deviceCMYK(const std::vector<float>& components) { return colorIn(standardSpace("deviceCMYKColorSpace"), components); }

id blend(id color, float fraction, id other) { return send(color, "blendedColorWithFraction:ofColor:", fraction, other); }

} // namespace

TEST_F(Conversions, MatchPublishedValues) {
    const id srgb = standardSpace("sRGBColorSpace"), p3 = standardSpace("displayP3ColorSpace");
    const id brown = colorIn(srgb, {0.8f, 0.5f, 0.25f, 0.75f});
    const struct {
        id color;
        const char* space;
        std::vector<float> expected;
        double tolerance;
    } cases[] = {{brown, "genericRGBColorSpace", {0.74954f, 0.42100f, 0.19419f, 0.75f}, 3e-4},
                 {brown, "adobeRGB1998ColorSpace", {0.72486f, 0.49610f, 0.27311f, 0.75f}, 3e-5},
                 {colorIn(srgb, {1, 0, 0, 1}), "displayP3ColorSpace", {0.9175f, 0.2003f, 0.1386f, 1}, 1e-4},
                 {colorIn(srgb, {0, 1, 0, 1}), "displayP3ColorSpace", {0.4584f, 0.9853f, 0.2983f, 1}, 1e-4},
                 // Device RGB represents a display with the primaries and curve of sRGB.
                 {brown, "deviceRGBColorSpace", {0.8f, 0.5f, 0.25f, 0.75f}, 1e-7},
                 // Grey is the luminance.
                 {brown, "genericGamma22GrayColorSpace", {0.57047f, 0.75f}, 1e-4},
                 {brown, "genericGrayColorSpace", {0.50357f, 0.75f}, 1e-4},
                 // Components that the target cannot show are clipped. Within one space nothing changes.
                 {colorIn(p3, {0, 1, 0, 1}), "sRGBColorSpace", {0, 1, 0, 1}, 0},
                 {calibratedRGB(3, 3, 3, 2), "deviceRGBColorSpace", {1, 1, 1, 2}, 0},
                 {calibratedRGB(3, -1, 0), "genericRGBColorSpace", {3, -1, 0, 1}, 0},
                 // CMYK is the complement, with full black.
                 {colorIn(srgb, {0.8f, 0.4f, 0.2f, 0.5f}), "deviceCMYKColorSpace", {0, 0.5f, 0.75f, 0.2f, 0.5f}, 1e-6},
                 {color("blackColor"), "deviceCMYKColorSpace", {0, 0, 0, 1, 1}, 0},
                 {deviceCMYK({0, 1, 1, 0, 1}), "deviceRGBColorSpace", {1, 0, 0, 1}, 0},
                 {deviceCMYK({0.5f, 0, 1, 0.5f, 1}), "deviceRGBColorSpace", {0.25f, 0.5f, 0, 1}, 0},
                 {color("textColor"), "genericGrayColorSpace", {0, 1}, 0}};
    for (const auto& [color, space, expected, tolerance] : cases) {
        SCOPED_TRACE(textOf(color) + " to " + space);
        expectNear(componentsOf(inSpace(color, space)), expected, tolerance);
        EXPECT_EQ(send(inSpace(color, space), "colorSpace"), standardSpace(space));
    }
    const std::vector<float> selection = componentsOf(named(color("selectedControlColor"), "NSCalibratedRGBColorSpace"));
    EXPECT_GT(selection.at(2), selection.at(0)) << "a selection is bluish";
}

TEST_F(Conversions, KeepGreysNeutralAndRoundTripWithinTheGamut) {
    constexpr const char* spaces[] = {"displayP3ColorSpace", "adobeRGB1998ColorSpace", "deviceRGBColorSpace",
                                      "genericRGBColorSpace", "sRGBColorSpace"};
    for (const float white : {0.f, 0.1f, 1 / 3.f, 0.5f, 0.7f, 1.f}) {
        const id grey = color("colorWithCalibratedWhite:alpha:", white, 0.5f);
        EXPECT_EQ(componentsOf(inSpace(grey, "genericRGBColorSpace")), std::vector({white, white, white, 0.5f}));
        for (const char* const space : spaces) {
            const std::vector<float> rgb = componentsOf(inSpace(grey, space));
            const float level = white < 1 ? rgb.at(0) : 1;
            expectNear(rgb, {level, level, level, 0.5f}, white < 1 ? 1e-7 : 0);
        }
    }
    for (int level = 0; level <= 1000; ++level) {
        const id grey = color("colorWithCalibratedWhite:alpha:", static_cast<float>(level) / 1000, 1.f);
        const std::vector<float> inks = componentsOf(inSpace(grey, "deviceCMYKColorSpace"));
        ASSERT_EQ(std::vector(inks.begin(), inks.begin() + 3), std::vector({0.f, 0.f, 0.f})) << level << " needs only black";
    }
    EXPECT_EQ(componentsOf(inSpace(color("whiteColor"), "deviceCMYKColorSpace")), std::vector({0.f, 0.f, 0.f, 0.f, 1.f}));
    id travelling = colorIn(standardSpace("sRGBColorSpace"), {0.8f, 0.5f, 0.25f, 1});
    for (const char* const space : spaces)
        travelling = inSpace(travelling, space);
    expectNear(componentsOf(travelling), {0.8f, 0.5f, 0.25f, 1}, 1e-6);
}

TEST_F(Conversions, ReturnTheReceiverOrNilIfNothingIsConverted) {
    const id rgb = calibratedRGB(1, 0.5f, 0), catalog = color("controlColor");
    const id custom = colorIn(standardSpace("sRGBColorSpace"), {0, 0, 0, 1});
    const id pattern = color("colorWithPatternImage:", created("NSImage", "init"));
    EXPECT_EQ(inSpace(rgb, "genericRGBColorSpace"), rgb);
    EXPECT_EQ(send(rgb, "colorUsingColorSpace:", id{}), nullptr);
    EXPECT_EQ(send(rgb, "colorUsingColorSpaceName:", id{}), rgb) << "the most suitable space is its own";
    EXPECT_EQ(textOf(send(send(catalog, "colorUsingColorSpaceName:", id{}), "colorSpace")), "sRGB IEC61966-2.1 colorspace");
    EXPECT_EQ(inSpace(pattern, "sRGBColorSpace"), nullptr);
    const std::tuple<id, const char*, id> cases[] = {{rgb, "NSCalibratedRGBColorSpace", rgb},
                                                     {catalog, "NSNamedColorSpace", catalog},
                                                     {custom, "NSCustomColorSpace", custom},
                                                     {pattern, "NSPatternColorSpace", pattern},
                                                     {rgb, "", nullptr},
                                                     {rgb, "NoSuchColorSpace", nullptr},
                                                     {rgb, "NSNamedColorSpace", nullptr},
                                                     {rgb, "NSPatternColorSpace", nullptr},
                                                     {rgb, "NSCustomColorSpace", nullptr},
                                                     {pattern, "NSCalibratedRGBColorSpace", nullptr}};
    for (const auto& [color, name, expected] : cases)
        EXPECT_EQ(named(color, name), expected) << textOf(color) << " to " << name;
}

TEST_F(Conversions, DerivedColorsAreMixedInCalibratedRGB) {
    const id rgb = calibratedRGB(1, 0.5f, 0, 0.5f), white = color("whiteColor"), text = color("textColor");
    const id pattern = color("colorWithPatternImage:", created("NSImage", "init"));
    const std::pair<id, const char*> cases[] = {
        {send(calibratedRGB(0.25f, 2, 0), "colorWithAlphaComponent:", 0.5f), "NSCalibratedRGBColorSpace 0.25 2 0 0.5"},
        {send(rgb, "colorWithAlphaComponent:", 7.f), "NSCalibratedRGBColorSpace 1 0.5 0 1"},
        {send(text, "colorWithAlphaComponent:", 0.25f), "NSCustomColorSpace sRGB IEC61966-2.1 colorspace 0 0 0 0.25"},
        {blend(rgb, 0.25f, white), "NSCalibratedRGBColorSpace 1 0.625 0.25 0.625"},
        {blend(color("blackColor"), 0.5f, white), "NSCalibratedRGBColorSpace 0.5 0.5 0.5 1"},
        {blend(rgb, 0.5f, nullptr), "(nil)"},
        {blend(rgb, 0.5f, pattern), "(nil)"},
        {blend(pattern, 0.5f, rgb), "(nil)"},
        {send(rgb, "highlightWithLevel:", 0.5f), "NSCalibratedRGBColorSpace 1 0.75 0.5 0.75"},
        {send(rgb, "shadowWithLevel:", 0.5f), "NSCalibratedRGBColorSpace 0.5 0.25 0 0.75"},
        {send(rgb, "shadowWithLevel:", 5.f), "Catalog color: System shadowColor"},
        {send(rgb, "highlightWithLevel:", 1.f), "Catalog color: System highlightColor"},
        {rgb, "NSCalibratedRGBColorSpace 1 0.5 0 0.5"}, // the receiver stays unchanged
    };
    for (const auto& [derived, description] : cases)
        EXPECT_EQ(textOf(derived), description);
    EXPECT_EQ(send(pattern, "colorWithAlphaComponent:", 0.25f), pattern);
    EXPECT_EQ(send(rgb, "shadowWithLevel:", -1.f), rgb);
    EXPECT_EQ(send(text, "highlightWithLevel:", 0.f), text);
    EXPECT_TRUE(refuses([&] { blend(rgb, 0.5f, string("no colour")); }));
}

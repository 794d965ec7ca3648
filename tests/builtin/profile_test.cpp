// ICC profiles: written, read back, and refused when they are broken.
#include "support/native.h"
#include "support/profile_builder.h"

#include <cstdint>
#include <fstream>
#include <sstream>

using namespace chroma;
using namespace chroma::test;
using namespace std::string_literals;

using Profiles = PlatformTest;

namespace {

id spaceFrom(const std::string& profile) { return created("NSColorSpace", "initWithICCProfileData:", dataOf(profile)); }
std::string profileOf(id space) { return bytesOf(send(space, "ICCProfileData")); }
std::string nameOf(id space) { return textOf(send(space, "localizedName")); }

// Returns a complete profile of version 2 with the primaries of sRGB and a gamma of 1.
std::string linearRGB() {
    return profile("RGB ", {{"desc", plainText("Linear")},
                            {"rTRC", gammaCurve(1)},
                            {"gTRC", gammaCurve(1)},
                            {"bTRC", gammaCurve(1)},
                            {"rXYZ", xyz({0.43607, 0.22250, 0.01393})},
                            {"gXYZ", xyz({0.38506, 0.71688, 0.09710})},
                            {"bXYZ", xyz({0.14308, 0.06062, 0.71417})}});
}

} // namespace

TEST_F(Profiles, RecreateEqualStandardSpaces) {
    for (const char* const message :
         {"genericRGBColorSpace", "genericGrayColorSpace", "sRGBColorSpace", "adobeRGB1998ColorSpace",
          "genericGamma22GrayColorSpace", "displayP3ColorSpace", "genericCMYKColorSpace"}) {
        SCOPED_TRACE(message);
        const id space = standardSpace(message), same = spaceFrom(profileOf(space));
        ASSERT_TRUE(isEqual(same, space));
        for (const char* const property : {"colorSpaceName", "localizedName"})
            EXPECT_EQ(textOf(send(same, property)), textOf(send(space, property)));
        EXPECT_EQ(send<std::intptr_t>(same, "colorSpaceModel"), send<std::intptr_t>(space, "colorSpaceModel"));
        EXPECT_EQ(profileOf(same), profileOf(space));
        const std::string profile = profileOf(space);
        EXPECT_EQ(profile.substr(68, 12), numbers({0.9642, 1, 0.8249}, 65536, 4)) << "the profile's illuminant";
        EXPECT_EQ(profile.substr(8, 4), "\x02\x10\0\0"s) << "the version that every reader supports";
        EXPECT_EQ(profile.substr(24, 6), "\x07\xE8\0\1\0\1"s) << "the first of January 2024";
        EXPECT_TRUE(isEqual(created("NSColorSpace", "initWithColorSyncProfile:", send(same, "colorSyncProfile")), space));

        // With another creator in its header, which affects nothing else, it is a different profile.
        const id other = spaceFrom(profileOf(space).replace(80, 4, "else"));
        EXPECT_FALSE(isEqual(other, space));
        std::vector<float> components(static_cast<std::size_t>(send<std::intptr_t>(space, "numberOfColorComponents")), 0.3f);
        components[0] = 0.9f;
        if (components.size() == 4) components[2] = 0; // black replaces what it can
        components.push_back(1);
        expectNear(componentsOf(send(colorIn(space, components), "colorUsingColorSpace:", other)), components,
                   components.size() == 5 ? 0.02 : 5e-4); // inks go through tables, and a gamma is stored in 256ths
    }
    const std::string matrix = numbers({1, 0, 0, 0, 1, 0, 0, 0, 1}, 65536, 4); // only XYZ may have another one
    EXPECT_NE(profileOf(standardSpace("genericCMYKColorSpace")).find("\4\3\x09\0"s + matrix), std::string::npos);
    for (const char* const message : {"ICCProfileData", "colorSyncProfile"})
        EXPECT_EQ(send(standardSpace("deviceRGBColorSpace"), message), nullptr);
}

TEST_F(Profiles, ConvertByTheirCurvesAndMatrices) {
    const id linear = spaceFrom(linearRGB());
    EXPECT_EQ(nameOf(linear), "Linear");
    expectNear(componentsOf(inSpace(colorIn(linear, {0.5f, 0.2f, 0.002f, 0.25f}), "sRGBColorSpace")),
               {0.73536f, 0.48453f, 0.02584f, 0.25f}, 1e-4);
    expectNear(componentsOf(inSpace(colorIn(linear, {1, 1, 1, 1}), "sRGBColorSpace")), {1, 1, 1, 1}, 0);

    // A curve of grey, read forwards to the luminance of a value, and backwards if it has an inverse.
    const struct {
        std::string curve;
        float value;
        double luminance;
        const char* connection = "XYZ ";
        bool isInvertible = true;
    } cases[] = {{sampledCurve({0, 0.2, 1}), 0.75f, 0.6},
                 {sampledCurve({1, 0.2, 0}), 0.25f, 0.6}, // falling
                 {sampledCurve({}), 0.5f, 0.5},
                 {gammaCurve(2), 0.5f, 0.25},
                 {parametricCurve(0, {2}), 0.5f, 0.25},
                 {parametricCurve(1, {2, 0.5, 0.5}), 0.5f, 0.5625},
                 {parametricCurve(2, {2, 0.5, 0.25, 0.1}), 0.5f, 0.35},
                 {parametricCurve(2, {2, 1, -0.5, 0.25}), 0.1f, 0.25, "XYZ ", false},
                 {parametricCurve(3, {2, 1, 0, 0.5, 0.5}), 0.25f, 0.125},
                 {parametricCurve(4, {2, 0.9, 0, 0.5, 0.5, 0.1, 0.05}), 0.25f, 0.175},
                 {gammaCurve(1), 0.5f, 0.184187, "Lab "}, // lightness
                 {gammaCurve(1), 0.05f, 0.0055354, "Lab "},
                 {gammaCurve(1), 1, 1, "Lab "}};
    for (const auto& [curve, value, luminance, connection, isInvertible] : cases) {
        SCOPED_TRACE(testing::PrintToString(curve));
        const id grey = spaceFrom(profile("GRAY", {{"kTRC", curve}}, connection));
        const id gamma22 = inSpace(colorIn(grey, {value, 1}), "genericGamma22GrayColorSpace");
        ASSERT_NE(gamma22, nullptr);
        EXPECT_NEAR(std::pow(componentsOf(gamma22)[0], 2.2f), luminance, 5e-5 * luminance + 1e-6);
        if (isInvertible) expectNear(componentsOf(send(gamma22, "colorUsingColorSpace:", grey)), {value, 1}, 1e-5);
    }
}

// The expected values are the output of Little CMS's transicc for the press profile that Ghostscript ships: perceptual
// intent, 8-bit sRGB and percent.
TEST_F(Profiles, ConvertPressColorsLikeTransicc) {
    std::ostringstream bytes;
    bytes << std::ifstream("/usr/share/color/icc/ghostscript/default_cmyk.icc", std::ios::binary).rdbuf();
    const id press = spaceFrom(bytes.str());
    ASSERT_NE(press, nullptr);
    const std::pair<std::vector<float>, std::vector<float>> toRgb[] = {
        {{1, 0, 0, 0}, {0, 175.9805f, 239.5486f}},
        {{0, 1, 1, 0}, {237.6654f, 51.3502f, 55.8132f}},
        {{.2f, .4f, .6f, .1f}, {188.7315f, 146.9689f, 110.93f}},
        {{0, 0, 0, 1}, {55.0856f, 52.9027f, 53.3658f}}};
    for (auto [ink, rgb] : toRgb) {
        for (float& level : rgb)
            level /= 255;
        ink.push_back(1);
        rgb.push_back(1);
        expectNear(componentsOf(inSpace(colorIn(press, ink), "sRGBColorSpace")), rgb, 1e-3);
    }
    const std::pair<std::vector<float>, std::vector<float>> toInk[] = {
        {{1, 128 / 255.f, 0, 1}, {0, 0.639429f, 1, 0, 1}},
        {{0.2f, 0.4f, 0.8f, 0.5f}, {0.851987f, 0.664225f, 0, 0, 0.5f}},
        {{1, 1, 1, 1}, {0, 0, 0, 0, 1}},
        {{0, 0, 0, 1}, {0.746059f, 0.679896f, 0.653422f, 0.900481f, 1}}};
    for (const auto& [rgb, ink] : toInk) {
        const id color = colorIn(standardSpace("sRGBColorSpace"), rgb);
        expectNear(componentsOf(send(color, "colorUsingColorSpace:", press)), ink, 1e-3);
    }
}

TEST_F(Profiles, ConvertOnlyInSupportedDirections) {
    // mAB and mBA tables with only curves, at offset 32: three identities.
    const auto curvesOnly = [](const char* type, const std::string& curve = sampledCurve({})) {
        return value(type,
                     number(3, 1) + number(3, 1) + number(0, 2) + number(32, 4) + number(0, 16) + curve + curve + curve);
    };
    const std::string toPcs = curvesOnly("mAB "), fromPcs = curvesOnly("mBA ");
    const std::tuple<Tags, bool, bool> cases[] = {{{{"A2B0", toPcs}, {"B2A0", fromPcs}}, true, true},
                                                  {{{"A2B1", toPcs}}, true, false},
                                                  {{{"B2A2", fromPcs}}, false, true}};
    const id white = colorIn(standardSpace("sRGBColorSpace"), {1, 1, 1, 1});
    constexpr float level = 128 / 255.f; // its L* is 53.585
    for (const auto& [tags, from, to] : cases) {
        const id space = spaceFrom(profile("Lab ", tags, "Lab "));
        ASSERT_NE(space, nullptr);
        const id grey = inSpace(colorIn(space, {53.585f, 0, 0, 1}), "sRGBColorSpace");
        if (from)
            expectNear(componentsOf(grey), {level, level, level, 1}, 1e-4);
        else
            EXPECT_EQ(grey, nullptr);
        const id lab = send(white, "colorUsingColorSpace:", space);
        if (to)
            expectNear(componentsOf(lab), {100, 0, 0, 1}, 1e-4);
        else
            EXPECT_EQ(lab, nullptr);
    }
    // Curves that lead out of the range: 2x for an L* of 100, and for a* and b* of 0.
    const id bright = spaceFrom(profile("RGB ", {{"B2A0", curvesOnly("mBA ", parametricCurve(1, {1, 2, 0}))}}, "Lab "));
    expectNear(componentsOf(send(white, "colorUsingColorSpace:", bright)), {1, 1, 1, 1}, 0);
    // Colorants in one plane convert to XYZ but not back.
    const std::string red = xyz({0.4, 0.2, 0.1});
    const id flat = spaceFrom(profile("RGB ", {{"rTRC", gammaCurve(1)},
                                               {"gTRC", gammaCurve(1)},
                                               {"bTRC", gammaCurve(1)},
                                               {"rXYZ", red},
                                               {"gXYZ", red},
                                               {"bXYZ", red}}));
    EXPECT_NE(inSpace(colorIn(flat, {1, 0, 0, 1}), "sRGBColorSpace"), nullptr);
    EXPECT_EQ(send(white, "colorUsingColorSpace:", flat), nullptr);
}

TEST_F(Profiles, KeepWhiteAndBlackWithFlatCurveEnds) {
    const std::string curve = sampledCurve({0, 0, 0.3, 1, 1});
    const id knee = spaceFrom(profile("GRAY", {{"kTRC", curve}}));
    const id space = standardSpace("genericGamma22GrayColorSpace");
    for (const auto& [level, expected] : {std::pair(1.f, 1.f), {std::nextafter(1.f, 0.f), 1.f}, {0.f, 0.25f}})
        expectNear(componentsOf(send(colorIn(space, {level, 1}), "colorUsingColorSpace:", knee)), {expected, 1}, 1e-6);
}

TEST_F(Profiles, ReportModelChannelsAndName) {
    const std::tuple<const char*, std::intptr_t, std::size_t> models[] = {{"GRAY", 0, 1},  {"RGB ", 1, 3}, {"CMYK", 2, 4},
                                                                          {"Lab ", 3, 3},  {"2CLR", 4, 2}, {"9CLR", 4, 9},
                                                                          {"ACLR", 4, 10}, {"FCLR", 4, 15}};
    for (const auto& [colors, model, channels] : models) {
        const id space = spaceFrom(profile(colors, {}));
        EXPECT_EQ(send<std::intptr_t>(space, "colorSpaceModel"), model) << colors;
        EXPECT_EQ(send<std::intptr_t>(space, "numberOfColorComponents"), static_cast<std::intptr_t>(channels)) << colors;
        const std::vector<float> components(channels + 1, 0.5f);
        const id color = colorIn(space, components);
        EXPECT_EQ(componentsOf(color), components);
        EXPECT_EQ(textOf(send(color, "colorSpaceName")), "NSCustomColorSpace");
        EXPECT_EQ(inSpace(color, "sRGBColorSpace"), nullptr) << "the profile has no data for a conversion";
    }
    for (const char* const other : {"1CLR", "GCLR", "0CLR", "XYZ ", "HSV ", "\xFF\xFF\xFF\xFF"})
        EXPECT_EQ(spaceFrom(profile(other, {})), nullptr) << other;
    const std::pair<Tags, const char*> names[] = {
        {{{"desc", plainText("Caf\xE9")}}, "Caf\xC3\xA9"},
        {{{"desc", localizedText({{"deDE", u"Name"}, {"enUS", u"\u20AC"}})}}, "\xE2\x82\xAC"},
        {{{"desc", localizedText({{"deDE", u"Name"}, {"frFR", u"Nom"}})}}, "Name"},
        {{{"dmnd", plainText("Maker")}}, ""},
        {{{"desc", value("desc", number(0, 4))}}, ""},
        {{}, ""}};
    for (const auto& [tags, name] : names)
        EXPECT_EQ(nameOf(spaceFrom(profile("CMYK", tags))), name);
}

TEST_F(Profiles, AreRejectedIfMalformed) {
    const std::string complete = linearRGB();
    for (std::size_t size = 0; size < complete.size(); ++size)
        ASSERT_EQ(spaceFrom(complete.substr(0, size)), nullptr) << "cut to " << size;
    EXPECT_EQ(profileOf(spaceFrom(complete + "trailing")), complete);
    const std::pair<std::size_t, std::string> patches[] = {{0, "\0\0\0\x20"s},   // a size smaller than the header
                                                           {36, "ascp"},         // no signature
                                                           {128, "\x10\0\0\1"s}, // a count whose table would wrap around
                                                           // a tag that starts outside the profile
                                                           {136, "\xFF\xFF\xFF\xF0"},
                                                           {140, "\xFF\xFF\xFF\xF0"}}; // a tag that ends outside it
    for (const auto& [offset, bytes] : patches)
        EXPECT_EQ(spaceFrom(std::string(complete).replace(offset, bytes.size(), bytes)), nullptr) << offset;
    const std::pair<const char*, std::string> tags[] = {{"desc", "desc\0\0\0\0\xFF\xFF\xFF\xFFname"s},
                                                        {"desc", "text\0\0\0\0name"s},
                                                        {"desc", "mluc\0\0\0\0\0\0\0\1\0\0\0\x0C"
                                                                 "enUS\0\0\0\x10\0\0\0\x1C\0a"s},
                                                        {"desc", "mluc\0\0\0\0\xFF\xFF\xFF\xFF\0\0\0\0"s},
                                                        {"kTRC", "curv\0\0\0\0\xFF\xFF\xFF\xFF\0\1"s},
                                                        {"kTRC", gammaCurve(0)},
                                                        {"kTRC", parametricCurve(5, {1, 1, 1, 1, 1, 1, 1})},
                                                        {"kTRC", parametricCurve(1, {2, 0, 1})},
                                                        {"kTRC", parametricCurve(0, {0})},
                                                        {"rXYZ", "XYZ \0\0\0\0\0\0"s}};
    // Tables: a type, channels, points, samples and so on. Only the last is complete.
    const std::string identity = numbers({1, 0, 0, 0, 1, 0, 0, 0, 1}, 65536, 4), curve = gammaCurve(1);
    const auto lookup = [&](const char* type, int inputs, int outputs, int points, int samples, std::size_t size) {
        return value(type, number(inputs, 1) + number(outputs, 1) + number(points, 1) + "\0"s + identity +
                               number(samples, 4) + std::string(size, '\0'));
    };
    const auto elements = [&](int curves, int grid, int width, const std::string& rest) {
        return value("mAB ", number(3, 1) + number(3, 1) + number(0, 2) + number(curves, 4) + number(0, 8) +
                                 number(grid, 4) + number(0, 4) + curve + "\0\0"s + curve + "\0\0"s + curve + "\0\0\2\2\2"s +
                                 std::string(13, '\0') + number(width, 1) + std::string(3, '\0') + rest);
    };
    const std::pair<std::string, bool> tables[] = {{lookup("mft2", 4, 3, 2, 0x20002, 72), false},
                                                   {lookup("mft2", 3, 4, 2, 0x20002, 72), false},
                                                   {lookup("mft2", 3, 3, 1, 0x20002, 72), false},
                                                   {lookup("mft2", 3, 3, 2, 0x10002, 72), false},
                                                   {lookup("mft2", 3, 3, 2, 0x20001, 72), false},
                                                   {lookup("mft2", 3, 3, 2, 0x20002, 71), false},
                                                   {lookup("mft2", 3, 3, 255, 0x20002, 72), false},
                                                   {lookup("mft3", 3, 3, 2, 0x20002, 72), false},
                                                   {lookup("mft2", 3, 3, 2, 0x20002, 72), true},
                                                   {elements(32, 80, 3, std::string(48, '\0')), false},
                                                   {elements(32, 80, 2, std::string(47, '\0')), false},
                                                   {elements(33, 80, 2, std::string(48, '\0')), false},
                                                   {elements(200, 80, 2, std::string(48, '\0')), false},
                                                   {elements(32, 80, 2, std::string(48, '\0')).replace(8, 1, "\4"), false},
                                                   {elements(32, 80, 2, std::string(48, '\0')).replace(9, 1, "\4"), false},
                                                   {elements(32, 80, 2, std::string(48, '\0')), true}};
    for (const auto& [table, isComplete] : tables)
        EXPECT_EQ(spaceFrom(profile("RGB ", {{"A2B0", table}}, "Lab ")) != nullptr, isComplete)
            << testing::PrintToString(table);
    for (const auto& [name, value] : tags)
        EXPECT_EQ(spaceFrom(profile(*name == 'k' ? "GRAY" : "RGB ", {{name, value}})), nullptr)
            << testing::PrintToString(value);
    EXPECT_EQ(created("NSColorSpace", "initWithICCProfileData:", id{}), nullptr);
    EXPECT_EQ(builtin_liveInstances("NSColorSpace"), 1u + 2) << "an initialiser that fails destroys its object";
}

// The pictures, drawn from the real plugins.
#include "swatches/color_syntax.h"
#include "swatches/pages.h"

#include "model/entries.h"
#include "model/plugin.h"
#include "model/strings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>

#include <unistd.h>

using namespace host::swatches;

namespace {

class Swatches : public testing::Test {
protected:
    static void SetUpTestSuite() {
        host::startHost();
        host::loadPlugin(CHROMASIBLING);
        host::loadPlugin(CHROMABRIDGE);
    }

    // What a page needs of the host it gives back.
    void SetUp() override { alive_ = host::liveObjectCount() + host::liveStringCount(); }
    void TearDown() override { EXPECT_EQ(host::liveObjectCount() + host::liveStringCount(), alive_); }

private:
    std::size_t alive_ = 0;
};

const Swatch& swatchNamed(const SwatchSheet& sheet, const std::string& name) {
    for (const SwatchGroup& group : sheet.groups) {
        for (const Swatch& swatch : group.swatches) {
            if (swatch.name == name) return swatch;
        }
    }
    throw std::runtime_error("no " + name);
}

std::size_t occurrences(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

// A list's file of these lines, with the sRGB and Display P3 spaces as 0 and 1; deleted at the end.
class ListFile {
public:
    explicit ListFile(const std::string& colors) {
        std::ofstream(path) << "chromabridge color list 1\nspace 0 standard sRGB\nspace 1 standard displayP3\n"
                            << colors << "\nend " << occurrences(colors, "components") << "\n";
    }
    ~ListFile() { std::remove(path.c_str()); }

    const std::string path = testing::TempDir() + "swatches_test_" + std::to_string(getpid()) + ".clr";
};

std::string hexOfText(const std::string& text) { return hexOf(inSRGB(colorOfText(text))); }

} // namespace

TEST_F(Swatches, GroupTheSystemsColoursWithTextOnItsBackground) {
    const SwatchSheet sheet = systemColors();
    std::vector<std::string> titles;
    std::size_t count = 0, texts = 0;
    for (const SwatchGroup& group : sheet.groups) {
        titles.push_back(group.title);
        for (const Swatch& swatch : group.swatches) {
            ++count;
            if (swatch.background) ++texts;
            EXPECT_EQ(valueOf(swatch), hexOf(inSRGB(namedColor(swatch.name)))) << swatch.name;
        }
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"Plain", "Text", "Controls", "Windows, menus and tables"})) << "no others";
    EXPECT_EQ(count, 46u);
    EXPECT_EQ(texts, 9u);
    EXPECT_EQ(swatchNamed(sheet, "whiteColor").space, "Generic Gray Profile");
    EXPECT_EQ(valueOf(swatchNamed(sheet, "clearColor")), "#00000000");
    EXPECT_EQ(contrastOf(*swatchNamed(sheet, "textColor").background), "21.0 : 1");
    EXPECT_NEAR(contrastRatio({0x77 / 255.0, 0x77 / 255.0, 0x77 / 255.0, 1}, {1, 1, 1, 1}), 4.48, 0.005) << "as published";
}

TEST_F(Swatches, TellHowFarAColourLiesOutside) {
    // Pairs that the authors of CIEDE2000 published, with what their terms of hue, turn and rounding must give.
    const struct {
        Lab first, second;
        double distance;
    } pairs[] = {{{50, 2.6772, -79.7751}, {50, 0, -82.7485}, 2.0425},
                 {{50, 0, 0}, {50, -1, 2}, 2.3669},
                 {{50, 2.49, -0.001}, {50, -2.49, 0.0009}, 7.1792},
                 {{50, 2.49, -0.001}, {50, -2.49, 0.0011}, 7.2195},
                 {{50, 2.5, 0}, {73, 25, -18}, 27.1492},
                 {{2.0776, 0.0795, -1.135}, {0.9033, -0.0636, -0.5514}, 0.9082}};
    for (const auto& pair : pairs) {
        EXPECT_NEAR(distance(pair.first, pair.second), pair.distance, 5e-5);
        EXPECT_NEAR(distance(pair.second, pair.first), pair.distance, 5e-5);
    }
    // The platform's own conversion and the formula for sRGB agree on what is inside.
    for (const char* text : {"white", "#36C", "lime", "blue", "rgb(1 2 3)"}) {
        const Reference color = colorOfText(text);
        EXPECT_LT(distance(labOf(color), labOf(inSRGB(color))), 0.02) << text;
    }
    const Lab blue = labOf(colorOfText("blue"));
    EXPECT_LT(distance(blue, {29.57, 68.30, -112.03}), 0.02) << "as published";
    const ListFile file("\"in\" components 0 3f800000 00000000 00000000 3f800000\n"
                        "\"p3\" components 1 00000000 3f800000 00000000 3f800000\n"
                        "\"extended\" components 0 00000000 3f8ccccd 00000000 3f800000");
    const SwatchSheet sheet = colorsOfList(file.path, {});
    EXPECT_EQ(markOf(swatchNamed(sheet, "in")), "");
    EXPECT_EQ(markOf(swatchNamed(sheet, "p3")), "\u25b2 \u0394E 5.2");
    EXPECT_GT(swatchNamed(sheet, "extended").outside, 1.0);
    EXPECT_EQ(valueOf(swatchNamed(sheet, "extended")), "#00FF00");
}

TEST_F(Swatches, ShowOneColourInEverySpace) {
    const ConversionSheet sheet = colorInSpaces("0080FF40");
    std::string terminal = written(sheet, ColorDepth::none);
    EXPECT_EQ(sheet.rows.size(), 10u);
    EXPECT_EQ(occurrences(svgOf(drawn(sheet, lightTheme)), "url(#halves)"), 10u);
    EXPECT_NE(terminal.find("  sRGB IEC61966-2.1               red 0.0000  green 0.5020  blue 1.0000  alpha 0.2510\n"),
              std::string::npos);
    EXPECT_NE(terminal.find("\n  Display P3 "), std::string::npos);
    EXPECT_EQ(terminal.find('\x1b'), std::string::npos);
}

TEST_F(Swatches, ReadColoursAsPeopleWriteThem) {
    const std::pair<const char*, const char*> colors[] = {{"#F80", "#FF8800"},
                                                          {"f808", "#FF880088"},
                                                          {"#0180fE", "#0180FE"},
                                                          {"01020304", "#01020304"},
                                                          {"Orange", "#FFA500"},
                                                          {"aliceblue", "#F0F8FF"},
                                                          {"yellowgreen", "#9ACD32"},
                                                          {"transparent", "#00000000"},
                                                          {"rgb(255, 128, 0)", "#FF8000"},
                                                          {"rgb(100% 50% 0% / 50%)", "#FF800080"},
                                                          {"RGBA(300,0,0,0.5)", "#FF000080"},
                                                          {"hsl(30 100% 50%)", "#FF8000"},
                                                          {"hsl(-330deg, 100%, 50%, 0.5)", "#FF800080"},
                                                          {"hsl(150, 50%, 40%)", "#339966"},
                                                          {"color(srgb 1 0.5 0)", "#FF8000"},
                                                          {"color(a98-rgb 1 1 1)", "#FFFFFF"},
                                                          {"REDCOLOR", "#FF2700"}};
    for (const auto& [text, hex] : colors)
        EXPECT_EQ(hexOfText(text), hex) << text;
    EXPECT_EQ(textProperty(spaceOf(colorOfText("color(display-p3 1 0.5 0)")), "localizedName"), "Display P3");
    for (const char* text :
         {"", "#", "#12", "#12345", "#1234567", "12345g", "##123456", "oranje", "rgb(1 2)", "rgb(1 2 3 4 5)", "rgb(1 2 x)",
          "rgb(nan 0 0)", "color(xyz 1 1 1)", "colorWithSRGB", "colorFromPasteboard()"})
        EXPECT_THROW(colorOfText(text), std::invalid_argument) << text;
}

TEST_F(Swatches, WriteKeysOfAnyKindAsText) {
    const ListFile file(R"("<b>\"&\u0007 é" components 0 3f800000 00000000 00000000 3f800000)");
    const std::string key = "<b>\"&\a é";
    const SwatchSheet sheet = colorsOfList(file.path, {});
    const std::string svg = svgOf(drawn(sheet, lightTheme));
    EXPECT_NE(svg.find(">&lt;b&gt;&quot;&amp; é</text>"), std::string::npos);
    EXPECT_NE(svg.find("fill=\"#ff0000\""), std::string::npos);
    EXPECT_NE(written(sheet, ColorDepth::direct).find("  \x1B[48;2;255;0;0m    \x1B[0m <b>\"& é"), std::string::npos);
    EXPECT_EQ(colorsOfList(file.path, {key}).groups[0].swatches.size(), 1u);
    EXPECT_THROW(colorsOfList(file.path, {key, "another"}), std::runtime_error);
    EXPECT_THROW(colorsOfList(file.path + ".gone", {}), std::runtime_error);
}

// By the metrics of DejaVu Sans: of 252 pixels in 12 points, "W" takes 11.87, "i" 3.34, "…" at least 10.
TEST_F(Swatches, MeasureWhatIsToFit) {
    const std::string wide(43, 'W'), narrow(70, 'i'), color = " components 0 3f800000 00000000 00000000 3f800000";
    std::string right;
    while (right.size() < 400)
        right += "أزرق";
    const ListFile file('"' + wide + '"' + color + "\n\"" + narrow + '"' + color + "\n\"" + right + '"' + color);
    const Picture page = drawn(colorsOfList(file.path, {}), lightTheme);
    if (sizeof(void*) == 4) {
        EXPECT_THROW(measured(page), std::invalid_argument);
        return;
    }
    std::vector<std::string> names;
    for (const Shape& shape : measured(page).shapes) {
        ASSERT_FALSE(std::holds_alternative<BoundedLabel>(shape));
        const auto* const label = std::get_if<Label>(&shape);
        if (label && label->size == 12 && label->color.red == lightTheme.ink.red) names.push_back(label->text);
    }
    ASSERT_EQ(names.size(), 3u);
    EXPECT_EQ(names[0], wide.substr(0, 20) + "…");
    EXPECT_EQ(names[1], narrow);
    EXPECT_EQ(names[2].substr(names[2].size() - 6), "…\u200F") << "where the text would go on: on the left";
}

TEST_F(Swatches, DrawThePictureAsPNG) {
    const Picture page = drawn(colorInSpaces("#336699"), darkTheme);
    if (sizeof(void*) == 4) {
        EXPECT_THROW(pngOf(page), std::invalid_argument);
        return;
    }
    const std::string png = pngOf(page);
    ASSERT_GT(png.size(), 24u);
    EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1A\n");
    const auto width = static_cast<unsigned char>(png[18]) * 256 + static_cast<unsigned char>(png[19]);
    EXPECT_EQ(width, static_cast<int>(2 * page.width));
}

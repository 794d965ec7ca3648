// Tests of the pictures, drawn with the real plugins.
#include "swatches/color_syntax.h"
#include "swatches/pages.h"
#include "text/columns.h"

#include "entries/entries.h"
#include "entries/plugin.h"
#include "values/strings.h"

#include <gtest/gtest.h>

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

    // A page releases everything that it takes from the host.
    void SetUp() override { alive_ = host::liveObjectCount() + host::liveStringCount(); }
    void TearDown() override { EXPECT_EQ(host::liveObjectCount() + host::liveStringCount(), alive_); }

private:
    std::size_t alive_ = 0;
};

} // namespace

TEST_F(Swatches, MeasureColorDifferencesAsPublished) {
    // Pairs that the authors of CIEDE2000 published, with the expected values of the terms for hue, rotation and rounding.
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
    EXPECT_NEAR(contrastRatio({0x77 / 255.0, 0x77 / 255.0, 0x77 / 255.0, 1}, {1, 1, 1, 1}), 4.48, 0.005) << "as published";
    // The platform's conversion and the formula for sRGB agree on colours within sRGB.
    for (const char* const text : {"white", "#36C", "lime", "blue", "rgb(1 2 3)"}) {
        const Reference color = colorOfText(text);
        EXPECT_LT(distance(labOf(color), labOf(inSRGB(color))), 0.02) << text;
    }
    const Lab blue = labOf(colorOfText("blue"));
    EXPECT_LT(distance(blue, {29.57, 68.30, -112.03}), 0.02) << "as published";
}

TEST_F(Swatches, ShowListColorsAndGroupEverySystemColor) {
    const std::string path = testing::TempDir() + "swatches_test_" + std::to_string(getpid()) + ".clr";
    std::ofstream(path) << "chromabridge color list 1\nspace 0 standard sRGB\n"
                           "\"red\" components 0 3f800000 00000000 00000000 3f800000\nend 1\n";
    const std::string page = written(colorsOfList(path, {}), ColorDepth::direct, 0);
    EXPECT_NE(page.find("  \x1B[48;2;255;0;0m    \x1B[0m red"), std::string::npos);
    for (const SwatchGroup& group : systemColors().groups)
        EXPECT_NE(group.title, "Other") << group.swatches[0].name << " needs its prefix in the groups of sheet.cpp";
    std::remove(path.c_str());
}

// Columns are aligned, names are shortened, and no line is wider than the terminal.
TEST_F(Swatches, FitTheTerminal) {
    SwatchSheet sheet = {"Keys", "Of a list", {{"", {}}}};
    for (const char* name :
         {"\u73ca\u745a\u8272 in Chinese", "e\u0301 \U0001f30a", "a name that is much too long for a narrow terminal"})
        sheet.groups[0].swatches.push_back({name, "Generic RGB Profile", {1, 0, 0, 1}, 0.8, std::nullopt, false});
    for (const unsigned width : {40u, 60u, 80u, 200u}) {
        for (const std::string& page :
             {written(sheet, ColorDepth::none, width), written(systemColors(), ColorDepth::none, width),
              written(colorInSpaces("color(display-p3 0 1 0)"), ColorDepth::none, width)}) {
            std::istringstream lines(page);
            for (std::string line; std::getline(lines, line);)
                EXPECT_LE(host::columnsOf(line), width) << line;
        }
    }
    const std::string page = written(sheet, ColorDepth::none, 60);
    for (const char* const line :
         {"\n  \u73ca\u745a\u8272 in Chinese      #FF0000    Generic RGB Pr\u2026 \u25b2 \u0394E 0.8\n",
          "\n  e\u0301 \U0001f30a                   #FF0000    Generic RGB Pr\u2026 \u25b2 \u0394E 0.8\n",
          "\n  a name that is much t\u2026 #FF0000    Generic RGB Pr\u2026 \u25b2 \u0394E 0.8\n"})
        EXPECT_NE(page.find(line), std::string::npos) << line << page;
}

TEST_F(Swatches, DrawThePictureAsPNG) {
    const Picture page = drawn(colorInSpaces("#336699"), darkTheme);
    if (!CHROMA_DRAWS_PNG) {
        EXPECT_THROW(pngOf(page), std::exception);
        return;
    }
    const std::string png = pngOf(page);
    ASSERT_GT(png.size(), 24u);
    EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1A\n");
    const auto width = static_cast<unsigned char>(png[18]) * 256 + static_cast<unsigned char>(png[19]);
    EXPECT_EQ(width, static_cast<int>(2 * page.width));

    const Picture tall = {"", 1, 40000, {Box{{0, 0, 1, 40000, 0}, {1, 0, 0, 1}}}}; // taller than an image of cairo may be
    EXPECT_EQ(pngOf(tall).substr(18, 6), std::string("\0\x01\0\0\x7F\xFF", 6));
    SwatchSheet many = {"Many", "", {{"", std::vector<Swatch>(2000, systemColors().groups[0].swatches[0])}}};
    const Picture grid = drawn(many, lightTheme);
    EXPECT_LT(grid.height, 2.5 * grid.width);
}

// The pictures, drawn from the real plugins.
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

template <class Kind>
std::vector<Kind> shapesOf(const Picture& picture) {
    std::vector<Kind> found;
    for (const Shape& shape : picture.shapes) {
        if (const Kind* const kind = std::get_if<Kind>(&shape)) found.push_back(*kind);
    }
    return found;
}

// Of the label, which a swatch precedes and whose value follows.
struct Entry {
    Box swatch;
    std::string value;
};

Entry entryOf(const Picture& picture, const std::string& name) {
    Entry entry = {};
    bool found = false;
    for (const Shape& shape : picture.shapes) {
        if (const Box* const box = std::get_if<Box>(&shape); box && !found) entry.swatch = *box;
        const Label* const label = std::get_if<Label>(&shape);
        if (!label) continue;
        if (found) {
            entry.value = label->text;
            return entry;
        }
        found = label->text == name;
    }
    ADD_FAILURE() << "no " << name;
    return entry;
}

std::string file(const char* suffix) { return testing::TempDir() + "swatches_test_" + std::to_string(getpid()) + suffix; }

std::string contentsOf(const std::string& path) {
    std::ostringstream contents;
    contents << std::ifstream(path, std::ios::binary).rdbuf();
    std::remove(path.c_str());
    return contents.str();
}

} // namespace

TEST_F(Swatches, ShowTheColoursThatTheClassesAnswer) {
    const Picture page = systemColorPage();
    for (const char* name : {"blackColor", "redColor", "controlColor", "alternateSelectedControlTextColor"}) {
        const Entry entry = entryOf(page, name);
        EXPECT_EQ(entry.value, hexOf(entry.swatch.fill)) << name;
        EXPECT_EQ(entry.value, hexOf(onScreen(namedColor(name)))) << name;
    }
    EXPECT_EQ(entryOf(page, "whiteColor").value, "#FFFFFF");
    EXPECT_EQ(entryOf(page, "clearColor").value, "#00000000");
    EXPECT_EQ(shapesOf<Checkerboard>(page).size(), 1u) << "behind clearColor alone";
    EXPECT_EQ(page.title, "System colours");
    EXPECT_EQ(shapesOf<Label>(page)[1].text.rfind("46 ", 0), 0u);
}

TEST_F(Swatches, ThePictureInTheDocumentationIsUpToDate) {
    std::ostringstream kept;
    kept << std::ifstream(PICTURE).rdbuf();
    EXPECT_EQ(kept.str(), svgOf(systemColorPage())) << "chromahost swatches docs/pictures/system_colors.svg";
}

TEST_F(Swatches, ShowsOneColourInEverySpace) {
    const Picture page = spacesPage(colorOfHex("0080FF40"));
    std::vector<std::string> texts;
    for (const Label& label : shapesOf<Label>(page))
        texts.push_back(label.text);
    EXPECT_EQ(shapesOf<Checkerboard>(page).size(), 9u);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "alpha"), 9);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "white"), 3);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "black"), 2);
    const auto space = std::find(texts.begin(), texts.end(), "sRGBColorSpace");
    ASSERT_GE(texts.end() - space, 9);
    EXPECT_EQ(std::vector<std::string>(space + 1, space + 9),
              (std::vector<std::string>{"red", "0.0000", "green", "0.5020", "blue", "1.0000", "alpha", "0.2510"}));
}

TEST_F(Swatches, WritesKeysOfAnyKindAsText) {
    const std::string list = file(".clr");
    std::ofstream(list) << "chromabridge color list 1\nspace 0 standard sRGB\n"
                        << R"("<b>\"&\u0007 é" components 0 3f800000 00000000 00000000 3f800000)"
                        << "\nend 1\n";
    const std::string key = "<b>\"&\a é";
    const std::string svg = svgOf(colorListPage(list, {key}));
    EXPECT_NE(svg.find(">&lt;b&gt;&quot;&amp; é</text>"), std::string::npos);
    EXPECT_NE(svg.find("fill=\"#ff0000\""), std::string::npos);
    EXPECT_THROW(colorListPage(list, {key, "another"}), std::runtime_error);
    std::remove(list.c_str());
    EXPECT_THROW(colorListPage(list, {key}), std::runtime_error);
}

TEST_F(Swatches, WritesTheFormThatTheFileIsNamedFor) {
    const Picture page = spacesPage(colorOfHex("#336699"));
    const std::string svg = file(".svg"), png = file(".PNG");
    writePicture(page, svg);
    EXPECT_EQ(contentsOf(svg), svgOf(page));
    EXPECT_THROW(writePicture(page, file(".gif")), std::invalid_argument);
    EXPECT_THROW(writePicture(page, "/no/such/folder/page.svg"), std::runtime_error);
    if (sizeof(void*) == 8) {
        writePicture(page, png);
        const std::string bytes = contentsOf(png);
        ASSERT_GT(bytes.size(), 24u);
        EXPECT_EQ(bytes.substr(0, 8), "\x89PNG\r\n\x1A\n");
        const auto width = static_cast<unsigned char>(bytes[18]) * 256 + static_cast<unsigned char>(bytes[19]);
        EXPECT_EQ(width, static_cast<int>(2 * page.width));
    } else {
        EXPECT_THROW(writePicture(page, png), std::invalid_argument);
        EXPECT_FALSE(std::ifstream(png).is_open());
    }
}

TEST_F(Swatches, ReadsHexadecimal) {
    for (const char* text : {"#000000", "#FFFFFF", "#0180FE", "#01020304"})
        EXPECT_EQ(hexOf(colorOfHex(text)), text);
    EXPECT_EQ(hexOf(colorOfHex("abcdefFF")), "#ABCDEF");
    for (const char* text : {"", "#", "#12345", "#1234567", "12345g", "##123456", "red"})
        EXPECT_THROW(colorOfHex(text), std::invalid_argument) << text;
}

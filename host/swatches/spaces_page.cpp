// One colour in every named space, a row each.
#include "swatches/layout.h"
#include "swatches/pages.h"

#include <cstdio>

namespace host::swatches {

namespace {

constexpr double rowHeight = 64.0, swatchWidth = 96.0, nameColumn = margin + swatchWidth + 18.0, valueColumn = 420.0,
                 valueWidth = 92.0;
constexpr std::size_t mostValues = 5;
constexpr double pageWidth = valueColumn + mostValues * valueWidth + margin;

// In the platform's order, alpha last; empty for a space of another kind.
std::vector<std::string> componentNames(std::size_t count) {
    switch (count) {
    case 2: return {"white", "alpha"};
    case 4: return {"red", "green", "blue", "alpha"};
    case 5: return {"cyan", "magenta", "yellow", "black", "alpha"};
    default: return std::vector<std::string>(count);
    }
}

std::string valueText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4f", value);
    return text;
}

void addValues(Picture& picture, double y, const std::vector<double>& values) {
    const std::vector<std::string> names = componentNames(values.size());
    for (std::size_t i = 0; i < values.size() && i < mostValues; ++i) {
        const double x = valueColumn + static_cast<double>(i) * valueWidth;
        picture.shapes.push_back(Label{x, y + 20, 10, Typeface::plain, Align::left, softInk, names[i]});
        picture.shapes.push_back(Label{x, y + 38, 13, Typeface::monospaced, Align::left, ink, valueText(values[i])});
    }
}

void addRow(Picture& picture, double y, const std::string& member, const Reference& color, const Reference& space) {
    const Reference there = converted(color, space);
    const double nameWidth = valueColumn - nameColumn - 12;
    picture.shapes.push_back(Label{nameColumn, y + 21, 13, Typeface::bold, Align::left, ink,
                                   fitted(textProperty(space, "localizedName"), 13, nameWidth)});
    picture.shapes.push_back(
        Label{nameColumn, y + 38, 10.5, Typeface::plain, Align::left, softInk, fitted(member, 10.5, nameWidth)});
    if (!there) {
        picture.shapes.push_back(
            Label{valueColumn, y + 29, 12, Typeface::plain, Align::left, softInk, "cannot be converted"});
        return;
    }
    addSwatch(picture, {margin, y, swatchWidth, rowHeight - 16, 5}, onScreen(there));
    addValues(picture, y, componentsOf(there));
}

} // namespace

Picture spacesPage(const ScreenColor& color) {
    const std::vector<std::string> spaces = sharedMakers("NSColorSpaceZRX");
    Picture picture = pageWithHeader(hexOf(color), "The colour of that sRGB value in the spaces of NSColorSpaceZRX",
                                     pageWidth, headerHeight + static_cast<double>(spaces.size()) * rowHeight + margin - 16);
    const Reference source = sRGBColor(color);
    double y = headerHeight;
    for (const std::string& name : spaces) {
        if (const Reference space = namedSpace(name)) addRow(picture, y, name, source, space);
        y += rowHeight;
        if (name != spaces.back()) picture.shapes.push_back(Box{{margin, y - 8.5, pageWidth - 2 * margin, 1, 0}, hairline});
    }
    return picture;
}

} // namespace host::swatches

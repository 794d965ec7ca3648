// Draws one colour in every named space, one per row.
#include "swatches/layout.h"

#include <cstdio>

namespace host::swatches {

namespace {

constexpr double rowHeight = 64.0, swatchWidth = 96.0, nameColumn = margin + swatchWidth + 18.0, valueColumn = 420.0,
                 valueWidth = 92.0;
constexpr std::size_t mostValues = 5;
constexpr double markColumn = valueColumn + mostValues * valueWidth, pageWidth = markColumn + 84.0 + margin;

std::string valueText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4f", value);
    return text;
}

void addValues(Picture& picture, double y, const std::vector<Component>& components, const Theme& theme) {
    for (std::size_t i = 0; i < components.size() && i < mostValues; ++i) {
        const double x = valueColumn + static_cast<double>(i) * valueWidth;
        picture.shapes.push_back(Label{x, y + 20, 10, Typeface::plain, Align::left, theme.softInk, components[i].name});
        picture.shapes.push_back(
            Label{x, y + 38, 13, Typeface::monospaced, Align::left, theme.ink, valueText(components[i].value)});
    }
}

void addRow(Picture& picture, double y, const Conversion& row, const Theme& theme) {
    const double nameWidth = valueColumn - nameColumn - 12;
    picture.shapes.push_back(BoundedLabel{
        {nameColumn, y + 21, 13, Typeface::bold, Align::left, theme.ink, row.swatch.name}, nameWidth, theme.paper});
    picture.shapes.push_back(BoundedLabel{
        {nameColumn, y + 38, 10.5, Typeface::plain, Align::left, theme.softInk, row.member}, nameWidth, theme.paper});
    if (row.components.empty()) {
        picture.shapes.push_back(
            Label{valueColumn, y + 29, 12, Typeface::plain, Align::left, theme.softInk, "cannot be converted"});
        return;
    }
    addSwatch(picture, {margin, y, swatchWidth, rowHeight - 16, 5}, row.swatch.shown, theme);
    addValues(picture, y, row.components, theme);
    picture.shapes.push_back(Label{markColumn, y + 38, 12, Typeface::plain, Align::left, theme.ink, markOf(row.swatch)});
}

} // namespace

Picture drawn(const ConversionSheet& sheet, const Theme& theme) {
    const auto count = static_cast<double>(sheet.rows.size());
    Picture picture =
        pageWithHeader(sheet.title, sheet.subtitle, pageWidth, headerHeight + count * rowHeight + margin - 16, theme);
    double y = headerHeight;
    for (const Conversion& row : sheet.rows) {
        if (y > headerHeight) picture.shapes.push_back(Box{{margin, y - 8.5, pageWidth - 2 * margin, 1, 0}, theme.hairline});
        addRow(picture, y, row, theme);
        y += rowHeight;
    }
    return picture;
}

} // namespace host::swatches

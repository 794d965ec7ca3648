// Cards in a grid: the system's colours, and those of a list.
#include "swatches/layout.h"
#include "swatches/pages.h"

#include <algorithm>
#include <stdexcept>

namespace host::swatches {

namespace {

struct NamedColor {
    std::string name;
    std::string hex; // "pattern" for one that has no components
    std::string spaceName;
    ScreenColor shown;
};

constexpr double cardWidth = 272.0, cardHeight = 118.0, swatchHeight = 62.0, gap = 16.0, padding = 10.0;
constexpr std::size_t columns = 4;

NamedColor describe(const std::string& name, const Reference& color) {
    const std::string space = textProperty(color, "colorSpaceName");
    const ScreenColor shown = onScreen(color);
    return {name, space == "NSPatternColorSpace" ? "pattern" : hexOf(shown), space, shown};
}

void addCard(Picture& picture, double x, double y, const NamedColor& color) {
    const Frame frame = {x, y, cardWidth, cardHeight, 8};
    const double left = x + padding, right = x + cardWidth - padding, inner = cardWidth - 2 * padding;
    picture.shapes.push_back(Box{frame, card});
    picture.shapes.push_back(Outline{frame, hairline});
    addSwatch(picture, {left, y + padding, inner, swatchHeight, 5}, color.shown);
    const double nameLine = y + padding + swatchHeight + 18, valueLine = nameLine + 17;
    picture.shapes.push_back(Label{left, nameLine, 12, Typeface::plain, Align::left, ink, fitted(color.name, 12, inner)});
    picture.shapes.push_back(Label{left, valueLine, 11, Typeface::monospaced, Align::left, softInk, color.hex});
    picture.shapes.push_back(Label{right, valueLine, 10, Typeface::plain, Align::right, softInk, color.spaceName});
}

Picture gridPage(const std::string& title, const std::string& subtitle, const std::vector<NamedColor>& colors) {
    const std::size_t across = std::max<std::size_t>(2, std::min(columns, colors.size())); // two cards hold a title
    const std::size_t rows = (colors.size() + across - 1) / across;
    const auto extent = [](std::size_t count, double size) { return static_cast<double>(count) * (size + gap) - gap; };
    Picture picture = pageWithHeader(title, subtitle, extent(across, cardWidth) + 2 * margin,
                                     headerHeight + extent(rows, cardHeight) + margin);
    for (std::size_t i = 0; i < colors.size(); ++i) {
        addCard(picture, margin + static_cast<double>(i % across) * (cardWidth + gap),
                headerHeight + static_cast<double>(i / across) * (cardHeight + gap), colors[i]);
    }
    return picture;
}

// Of a shared method that takes nothing and answers a colour. The texture of a scrubber is no plain colour, nor is what
// happens to be on the pasteboard one of the system's.
bool namesSystemColor(const std::string& name) {
    return name != "scrubberTexturedBackgroundColor" && name != "colorFromPasteboard";
}

} // namespace

Picture systemColorPage() {
    std::vector<NamedColor> colors;
    for (const std::string& name : sharedMakers("NSColorZRX")) {
        if (!namesSystemColor(name)) continue;
        if (const Reference color = namedColor(name)) colors.push_back(describe(name, color));
    }
    return gridPage("System colours",
                    std::to_string(colors.size()) +
                        " colours of NSColorZRX, as sRGB in hexadecimal, with the name of their space",
                    colors);
}

Picture colorListPage(const std::string& file, const std::vector<std::string>& keys) {
    const std::string name = file.substr(file.find_last_of('/') + 1);
    const Reference list = newColorList(name, file);
    if (!list) throw std::runtime_error(file + " cannot be read, or is no colour list");
    std::vector<NamedColor> colors;
    for (const std::string& key : keys) {
        const Reference color = colorWithKey(list, key);
        if (!color) throw std::runtime_error(file + " has no colour under the key \"" + key + "\"");
        colors.push_back(describe(key, color));
    }
    return gridPage(
        name, std::to_string(colors.size()) + (colors.size() == 1 ? " colour" : " colours") + " of a colour list", colors);
}

} // namespace host::swatches

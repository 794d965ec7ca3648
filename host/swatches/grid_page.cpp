// Draws cards in a grid: the system's colours, and those of a list.
#include "swatches/layout.h"

#include <algorithm>
#include <cmath>

namespace host::swatches {

namespace {

constexpr double cardWidth = 272.0, cardHeight = 118.0, swatchHeight = 62.0, gap = 16.0, padding = 10.0, hexWidth = 76.0,
                 markWidth = 64.0;
constexpr double groupHeight = 38.0; // the height of a group's title
constexpr std::size_t usualColumns = 4;

std::size_t rowsOf(const SwatchGroup& group, std::size_t across) { return (group.swatches.size() + across - 1) / across; }

double extent(std::size_t count, double size) { return static_cast<double>(count) * (size + gap) - gap; }

// Returns the number of columns for which a page of many colours is about twice as high as it is wide.
std::size_t columnsFor(std::size_t count) {
    return static_cast<std::size_t>(std::sqrt(static_cast<double>(count) * (cardHeight + gap) / (cardWidth + gap) / 2.0));
}

class Grid {
public:
    Grid(const SwatchSheet& sheet, const Theme& theme) : sheet_(sheet), theme_(theme) {
        std::size_t longest = 2; // a title needs the width of two cards
        for (const SwatchGroup& group : sheet.groups)
            longest = std::max(longest, group.swatches.size());
        across_ = std::max(std::min(usualColumns, longest), columnsFor(longest));
    }

    Picture drawn() {
        double height = headerHeight + margin;
        for (const SwatchGroup& group : sheet_.groups)
            height += heightOf(group);
        picture_ = pageWithHeader(sheet_.title, sheet_.subtitle, extent(across_, cardWidth) + 2 * margin,
                                  height - (sheet_.groups.size() > 1 ? gap : 0.0), theme_);
        double y = headerHeight;
        for (const SwatchGroup& group : sheet_.groups) {
            addGroup(group, y);
            y += heightOf(group);
        }
        return std::move(picture_);
    }

private:
    double heightOf(const SwatchGroup& group) const {
        const double cards = std::max(0.0, extent(rowsOf(group, across_), cardHeight));
        return group.title.empty() ? cards : groupHeight + cards + gap;
    }

    void addGroup(const SwatchGroup& group, double y) {
        if (!group.title.empty()) {
            picture_.shapes.push_back(Label{margin, y + 20, 14, Typeface::bold, Align::left, theme_.ink, group.title});
            y += groupHeight - 6;
        }
        for (std::size_t i = 0; i < group.swatches.size(); ++i) {
            addCard(margin + static_cast<double>(i % across_) * (cardWidth + gap),
                    y + static_cast<double>(i / across_) * (cardHeight + gap), group.swatches[i]);
        }
    }

    void addCard(double x, double y, const Swatch& swatch) {
        const Frame frame = {x, y, cardWidth, cardHeight, 8};
        const double left = x + padding, right = x + cardWidth - padding, inner = cardWidth - 2 * padding;
        picture_.shapes.push_back(Box{frame, theme_.card});
        picture_.shapes.push_back(Outline{frame, theme_.hairline});
        addColor({left, y + padding, inner, swatchHeight, 5}, swatch);
        const double nameLine = y + padding + swatchHeight + 18, valueLine = nameLine + 17;
        picture_.shapes.push_back(
            BoundedLabel{{left, nameLine, 12, Typeface::plain, Align::left, theme_.ink, swatch.name}, inner, theme_.card});
        picture_.shapes.push_back(
            Label{left, valueLine, 11, Typeface::monospaced, Align::left, theme_.softInk, valueOf(swatch)});
        const std::string place = swatch.background ? "on " + swatch.background->name : swatch.space, mark = markOf(swatch);
        picture_.shapes.push_back(Label{left + hexWidth, valueLine, 10, Typeface::plain, Align::left, theme_.ink, mark});
        picture_.shapes.push_back(BoundedLabel{{right, valueLine, 10, Typeface::plain, Align::right, theme_.softInk, place},
                                               inner - hexWidth - (mark.empty() ? 0 : markWidth),
                                               theme_.card});
    }

    // Draws a text colour as text on its background.
    void addColor(const Frame& frame, const Swatch& swatch) {
        addSwatch(picture_, frame, swatch.background ? swatch.background->color : swatch.shown, theme_);
        if (!swatch.background) return;
        picture_.shapes.push_back(Label{frame.x + 14, frame.y + frame.height / 2 + 7, 20, Typeface::plain, Align::left,
                                        swatch.shown, "Text 0123"});
        picture_.shapes.push_back(Label{frame.x + frame.width - 14, frame.y + frame.height / 2 + 5, 13, Typeface::plain,
                                        Align::right, swatch.shown, contrastOf(*swatch.background)});
    }

    const SwatchSheet& sheet_;
    const Theme& theme_;
    std::size_t across_;
    Picture picture_;
};

} // namespace

Picture drawn(const SwatchSheet& sheet, const Theme& theme) { return Grid(sheet, theme).drawn(); }

} // namespace host::swatches

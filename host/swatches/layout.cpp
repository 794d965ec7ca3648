#include "swatches/layout.h"

namespace host::swatches {

Picture pageWithHeader(const std::string& title, const std::string& subtitle, double width, double height,
                       const Theme& theme) {
    const double inner = width - 2 * margin;
    Picture picture = {title, width, height, {}};
    picture.shapes.push_back(Box{{0, 0, width, height, 0}, theme.paper});
    picture.shapes.push_back(
        BoundedLabel{{margin, 42, 22, Typeface::bold, Align::left, theme.ink, title}, inner, theme.paper});
    picture.shapes.push_back(
        BoundedLabel{{margin, 63, 12, Typeface::plain, Align::left, theme.softInk, subtitle}, inner, theme.paper});
    return picture;
}

void addSwatch(Picture& picture, const Frame& frame, const ScreenColor& color, const Theme& theme) {
    if (color.alpha < 1.0) picture.shapes.push_back(Halves{frame});
    picture.shapes.push_back(Box{frame, color});
    picture.shapes.push_back(Outline{frame, theme.hairline});
}

} // namespace host::swatches

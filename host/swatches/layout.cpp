#include "swatches/layout.h"

namespace host::swatches {

namespace {

// In ems. Fonts differ and the writers do not measure: these are on the wide side for letters of the Latin alphabet, and
// others count as full squares.
double widthOf(std::string_view character) { return character.size() == 1 ? 0.62 : character.size() == 2 ? 0.7 : 1.05; }

std::string_view firstCharacter(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        ++length;
    return text.substr(0, length);
}

} // namespace

Picture pageWithHeader(const std::string& title, const std::string& subtitle, double width, double height) {
    Picture picture = {title, width, height, {}};
    picture.shapes.push_back(Box{{0, 0, width, height, 0}, paper});
    picture.shapes.push_back(Label{margin, 42, 22, Typeface::bold, Align::left, ink, fitted(title, 24, width - 2 * margin)});
    picture.shapes.push_back(
        Label{margin, 63, 12, Typeface::plain, Align::left, softInk, fitted(subtitle, 12, width - 2 * margin)});
    return picture;
}

void addSwatch(Picture& picture, const Frame& frame, const ScreenColor& color) {
    if (color.alpha < 1.0) picture.shapes.push_back(Checkerboard{frame});
    picture.shapes.push_back(Box{frame, color});
    picture.shapes.push_back(Outline{frame, hairline});
}

std::string fitted(const std::string& text, double size, double width) {
    double used = 0.0;
    std::size_t end = 0, kept = 0; // kept: with which an ellipsis still fits
    while (end < text.size()) {
        const std::string_view character = firstCharacter(std::string_view(text).substr(end));
        used += widthOf(character) * size;
        if (used > width) return text.substr(0, kept) + "\u2026";
        end += character.size();
        if (used + size <= width) kept = end;
    }
    return text;
}

} // namespace host::swatches

// What the pages have in common: their colours, a swatch, and text that fits its place.
#pragma once

#include "swatches/picture.h"

namespace host::swatches {

constexpr double margin = 32.0;
constexpr double headerHeight = 84.0; // from the top to where the content begins

constexpr ScreenColor paper = {0.98, 0.98, 0.985, 1.0};
constexpr ScreenColor card = {1.0, 1.0, 1.0, 1.0};
constexpr ScreenColor ink = {0.11, 0.12, 0.15, 1.0};
constexpr ScreenColor softInk = {0.42, 0.44, 0.49, 1.0};
constexpr ScreenColor hairline = {0.0, 0.0, 0.0, 0.14};

// An empty page with its title and a line below it.
Picture pageWithHeader(const std::string& title, const std::string& subtitle, double width, double height);

// The colour in the frame: over a checkerboard where it is transparent, with a line around it.
void addSwatch(Picture& picture, const Frame& frame, const ScreenColor& color);

// The text, or its beginning and an ellipsis, so that it is about as wide as `width` at most in a font of that size.
std::string fitted(const std::string& text, double size, double width);

} // namespace host::swatches

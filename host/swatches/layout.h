// The common parts of the pages: margins, the header, a swatch.
#pragma once

#include "swatches/pages.h"

namespace host::swatches {

constexpr double margin = 32.0;
constexpr double headerHeight = 84.0; // from the top to the start of the content

// Returns an empty page with its title and a line below it.
Picture pageWithHeader(const std::string& title, const std::string& subtitle, double width, double height,
                       const Theme& theme);

// Draws the colour in the frame with a line around it. A translucent colour is half over white and half over black.
void addSwatch(Picture& picture, const Frame& frame, const ScreenColor& color, const Theme& theme);

} // namespace host::swatches

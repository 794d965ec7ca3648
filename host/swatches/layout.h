// What the pages have in common: their margins, header, a swatch.
#pragma once

#include "swatches/pages.h"

namespace host::swatches {

constexpr double margin = 32.0;
constexpr double headerHeight = 84.0; // from the top to where the content begins

// An empty page with its title and a line below it.
Picture pageWithHeader(const std::string& title, const std::string& subtitle, double width, double height,
                       const Theme& theme);

// The colour in the frame: half over white and half over black where it is translucent, with a line around it.
void addSwatch(Picture& picture, const Frame& frame, const ScreenColor& color, const Theme& theme);

} // namespace host::swatches

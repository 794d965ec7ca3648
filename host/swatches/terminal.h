// Shows colours on a terminal.
#pragma once

#include "swatches/colorimetry.h"

#include <string>

namespace host::swatches {

enum class ColorDepth { none, indexed, direct }; // no colours, 256 of them, 24 bits each

// Returns the colour depth of stdout. It is none if stdout is not a terminal, the terminal has no colours, or the user
// forbids them by NO_COLOR. It is 24 bits if COLORTERM says so.
ColorDepth outputColorDepth();

// Return four cells and a blank: a colour half over white and half over black, or text on an opaque background. Return ""
// if there are no colours.
std::string cells(const ScreenColor& color, ColorDepth depth);
std::string cells(const ScreenColor& text, const ScreenColor& background, ColorDepth depth);

} // namespace host::swatches

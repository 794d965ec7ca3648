// Colours on a terminal.
#pragma once

#include "swatches/colorimetry.h"

#include <string>

namespace host::swatches {

enum class ColorDepth { none, indexed, direct }; // no colours, 256 of them, 24 bits each

// Of stdout: none without a terminal, on one without colours, and where the user forbids them by NO_COLOR; 24 bits where
// COLORTERM says so.
ColorDepth outputColorDepth();

// Four cells and a blank: a colour half over white and half over black, or text on an opaque background. Empty without
// colours.
std::string cells(const ScreenColor& color, ColorDepth depth);
std::string cells(const ScreenColor& text, const ScreenColor& background, ColorDepth depth);

} // namespace host::swatches

// Parses and prints colours in the notations that people use.
#pragma once

#include "swatches/program.h"

#include <string>

namespace host::swatches {

// Returns "#0080FF", or "#0080FF80" if the colour is not opaque.
std::string hexOf(const ScreenColor& color);

// Returns the colour that a text describes:
// - "#F80", "#F808", "#FF8000" or "#FF800080", with or without the "#";
// - a colour of CSS: "orange", "rgb(255 128 0 / 50%)", "hsl(30, 100%, 50%)", "lab(50% 40 20)", "oklch(70% 0.2 50)",
//   "color(display-p3 1 0.5 0)";
// - a shared method of NSColorZRX that returns a colour, such as "redColor".
// Throws std::invalid_argument if the text is not a colour, and std::runtime_error like the functions of program.h.
Reference colorOfText(const std::string& text);

} // namespace host::swatches

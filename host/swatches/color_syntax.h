// Colours as people write them.
#pragma once

#include "swatches/program.h"

#include <string>

namespace host::swatches {

// "#0080FF", and "#0080FF80" for a colour that is not opaque.
std::string hexOf(const ScreenColor& color);

// "#F80", "#F808", "#FF8000", "#FF800080" with or without the "#", a colour of CSS ("orange", "rgb(255 128 0 / 50%)",
// "hsl(30, 100%, 50%)", "lab(50% 40 20)", "oklch(70% 0.2 50)", "color(display-p3 1 0.5 0)"), or a shared method of
// NSColorZRX that names one, such as "redColor". Throws std::invalid_argument for what is no colour, and std::runtime_error
// as program.h says.
Reference colorOfText(const std::string& text);

} // namespace host::swatches

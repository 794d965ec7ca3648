// Colours as people write them.
#pragma once

#include "swatches/program.h"

#include <optional>
#include <string>
#include <string_view>

namespace host::swatches {

// "#0080FF", and "#0080FF80" for a colour that is not opaque.
std::string hexOf(const ScreenColor& color);

// "#F80", "#F808", "#FF8000", "#FF800080" with or without the "#", a colour of CSS ("orange", "rgb(255 128 0 / 50%)",
// "hsl(30, 100%, 50%)", "color(display-p3 1 0.5 0)"), or a shared method of NSColorZRX that names one, such as "redColor".
// Throws std::invalid_argument for what is no colour, and std::runtime_error as program.h says.
Reference colorOfText(const std::string& text);

// The sRGB value 0xRRGGBB behind a name of CSS, in small letters.
std::optional<unsigned> cssColor(std::string_view name);

} // namespace host::swatches

// The named colours of CSS.
#pragma once

#include <optional>
#include <string_view>

namespace host {

// Returns the sRGB value 0xRRGGBB of a CSS name in lower case.
std::optional<unsigned> cssColor(std::string_view name);

} // namespace host

// The colours that CSS has names for.
#pragma once

#include <optional>
#include <string_view>

namespace host {

// The sRGB value 0xRRGGBB behind a name of CSS, in small letters.
std::optional<unsigned> cssColor(std::string_view name);

} // namespace host

// The named colours of CSS.
#pragma once

#include "chromabridge/host_abi.h"

#include <optional>
#include <string_view>

namespace host {

// Returns the opaque sRGB colour of a CSS name, in upper or lower case.
std::optional<HostColor> cssColor(std::string_view name);

} // namespace host

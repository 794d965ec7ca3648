// The channels of a colour, without alpha, in the form that conversions use.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

namespace chroma::builtin {

// The maximum in a profile's colour space.
constexpr std::size_t maxChannels = 15;

using Channels = std::array<double, maxChannels>;

// Clips to 0..1; not-a-number becomes 0.
inline double clip(double value) { return value > 0 ? std::min(value, 1.0) : 0; }

} // namespace chroma::builtin

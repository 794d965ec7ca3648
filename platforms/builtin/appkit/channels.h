// The channels of a colour, without alpha, as conversions calculate with them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

namespace chroma::builtin {

// The most that a profile's colour space can have.
constexpr std::size_t maxChannels = 15;

using Channels = std::array<double, maxChannels>;

// A value in 0..1; not-a-number counts as 0.
inline double clip(double value) { return value > 0 ? std::min(value, 1.0) : 0; }

} // namespace chroma::builtin

// ICC profiles: colour spaces as bytes.
#pragma once

#include "appkit/space_definition.h"

#include <cstdint>

namespace chroma::builtin {

// Returns the space that a profile describes, including the profile's bytes, or null if any part that it needs is
// malformed. A profile with neither a table nor curves (and, for RGB, colorants) is accepted; the space cannot be
// converted.
SpacePointer spaceFromProfile(const std::uint8_t* bytes, std::size_t size);

// Returns a version 2 profile. A grey or RGB space, whose channels all have the same curve, gets a display profile with
// curve and colorants. A complement gets a colour space profile with tables for both directions; the README describes their
// precision. `white` is the display's white point.
std::vector<std::uint8_t> profileOfSpace(const SpaceDefinition& space, const Vector3& white);

} // namespace chroma::builtin

// ICC profiles: colour spaces as bytes.
#pragma once

#include "appkit/space_definition.h"

#include <cstdint>

namespace chroma::builtin {

// Returns the space that a profile describes, including the profile's bytes, or null if any part that it needs is
// malformed. A profile with neither a table nor curves (and, for RGB, colorants) is accepted; the space cannot be
// converted.
SpacePointer spaceFromProfile(const std::uint8_t* bytes, std::size_t size);

// A version 2 profile: of a grey or RGB space, all of whose channels have one curve, a display's with curve and colorants;
// of a complement a colour space's, with tables for both directions, as near as the README says.
// `white` is the display's own.
std::vector<std::uint8_t> profileOfSpace(const SpaceDefinition& space, const Vector3& white);

} // namespace chroma::builtin

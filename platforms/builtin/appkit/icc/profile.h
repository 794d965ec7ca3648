// ICC profiles: colour spaces as bytes.
#pragma once

#include "appkit/space_definition.h"

#include <cstdint>

namespace chroma::builtin {

// The space that a profile describes, with the profile's bytes. Null when anything that is read of it is malformed. A space
// whose profile has no table, nor curves and for RGB colorants, is accepted and converts to no other.
SpacePointer spaceFromProfile(const std::uint8_t* bytes, std::size_t size);

// A version 2 profile: of a grey or RGB space, all of whose channels have one curve, a display's with curve and colorants;
// of a complement a colour space's, with tables for both directions, as near as the README says.
// `white` is the display's own.
std::vector<std::uint8_t> profileOfSpace(const SpaceDefinition& space, const Vector3& white);

} // namespace chroma::builtin

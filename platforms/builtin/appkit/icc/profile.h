// ICC profiles: colour spaces as bytes.
#pragma once

#include "appkit/space_definition.h"

namespace chroma::builtin {

// The space that a profile describes, with the profile's bytes. Null when anything that is read of it is malformed. A space
// whose profile has no curves, or for RGB no colorants, is accepted but converts to no other.
SpacePointer spaceFromProfile(const std::uint8_t* bytes, std::size_t size);

// A version 4 profile: of a grey or RGB space a display's, with curves and colorants; of a CMYK space an input device's,
// with a table, which converts from the space only. `adaptation` is the matrix that brought the colorants to D50, null when
// they were D50 to begin with.
std::vector<std::uint8_t> profileOfSpace(const SpaceDefinition& space, const Matrix3* adaptation);

} // namespace chroma::builtin

// The colour spaces that the platform itself has.
#pragma once

#include "appkit/space_definition.h"

#include <cstdint>

namespace chroma::builtin {

enum class StandardSpace {
    genericRGB,
    genericGray,
    genericCMYK,
    deviceRGB,
    deviceGray,
    deviceCMYK,
    sRGB,
    adobeRGB1998,
    genericGamma22Gray,
    displayP3,
};

constexpr std::size_t standardSpaceCount = 10;

// Never freed.
const SpacePointer& standardDefinition(StandardSpace space);

// Whether the space is a device's, whose colours are clipped to 0..1.
bool isOfDevice(const SpaceDefinition& space);

// The space of a profile: the platform's own when it is the profile of one of those, else what the profile describes. Null
// when it is malformed.
SpacePointer definitionOfProfile(const std::vector<std::uint8_t>& profile);

// Of a space object that has not been initialised: no model, no channels.
const SpacePointer& unknownDefinition();

} // namespace chroma::builtin

// The platform's own colour spaces.
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

// Returns a definition that is never freed.
const SpacePointer& standardDefinition(StandardSpace space);

// Returns whether the space is a device's, whose components are clipped to 0..1.
bool isOfDevice(const SpaceDefinition& space);

// Returns the platform's own space if the profile is that space's, otherwise the space that the profile describes; null if
// the profile is malformed.
SpacePointer definitionOfProfile(const std::vector<std::uint8_t>& profile);

// Returns the definition of a space object that was not initialised: no model, no channels.
const SpacePointer& unknownDefinition();

} // namespace chroma::builtin

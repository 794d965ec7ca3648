// The definition of a colour space, independent of its objects: plain data and arithmetic.
#pragma once

#include "appkit/channels.h"
#include "appkit/color_space_names.h"
#include "appkit/colorimetry.h"
#include "appkit/icc/table.h"
#include "appkit/transfer_curve.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace chroma::builtin {

enum class ColorModel : std::intptr_t { unknown = -1, gray = 0, rgb = 1, cmyk = 2, lab = 3, deviceN = 4 };

constexpr std::size_t maxComponents = maxChannels + 1; // with alpha

struct SpaceDefinition {
    ColorModel model = ColorModel::unknown;
    std::size_t channels = 0;
    std::u16string name;                         // localised name
    String* colorSpaceName = &spaceName::custom; // what its colours return for colorSpaceName
    std::vector<std::uint8_t> profile;           // ICC data, empty for a device space

    // The conversion between components and D50 XYZ: the profile's table for that direction if there is one, otherwise
    // curves and matrix or the complement. A space may be convertible in one direction only.
    bool convertsToXyz = false;
    bool convertsFromXyz = false;
    std::shared_ptr<const icc::Table> tableToXyz; // null without one
    std::shared_ptr<const icc::Table> tableFromXyz;
    TransferCurve curves[3]; // grey: the first
    Matrix3 toXyz{};         // RGB, from linear light
    Matrix3 fromXyz{};
    std::shared_ptr<const SpaceDefinition> complement; // CMYK: the RGB space whose complement it is
};

using SpacePointer = std::shared_ptr<const SpaceDefinition>;

// Returns whether the two spaces' components have the same meaning: the same definition or the same profile.
bool isSameSpace(const SpaceDefinition& first, const SpaceDefinition& second);

// Converts the channels, without alpha. Clips values outside a channel's range on the way out of `from`, and values that
// `to` cannot represent. Returns false if there is no conversion. Colours of equal spaces need none.
bool convertChannels(const SpaceDefinition& from, const float* channels, const SpaceDefinition& to, float* converted);

} // namespace chroma::builtin

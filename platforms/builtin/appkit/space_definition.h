// What a colour space is, apart from the objects that stand for it: plain data and arithmetic.
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
    std::u16string name;                         // for people
    String* colorSpaceName = &spaceName::custom; // what its colours answer to the message of that name
    std::vector<std::uint8_t> profile;           // ICC data, empty for a device space

    // How components become D50 XYZ, and XYZ components: by a profile's table for the direction where it has one, else by
    // curves and matrix or as a complement. Whether there is a way is told for each direction.
    bool convertsToXyz = false;
    bool convertsFromXyz = false;
    std::shared_ptr<const icc::Table> tableToXyz; // null without one
    std::shared_ptr<const icc::Table> tableFromXyz;
    TransferCurve curves[3]; // grey: the first
    Matrix3 toXyz{};         // RGB, from linear light
    Matrix3 fromXyz{};
    std::shared_ptr<const SpaceDefinition> complement; // CMYK: the RGB space that it is the complement of
};

using SpacePointer = std::shared_ptr<const SpaceDefinition>;

// Whether colours of the two can be taken for each other as they are: one definition, or the same profile.
bool isSameSpace(const SpaceDefinition& first, const SpaceDefinition& second);

// Converts the channels, without alpha. What lies outside the range of a channel is clipped on the way out of `from`, as is
// what `to` cannot show. False when there is no way. Between equal spaces nothing is calculated.
bool convertChannels(const SpaceDefinition& from, const float* channels, const SpaceDefinition& to, float* converted);

} // namespace chroma::builtin

// Feeds untrusted ICC profiles. Each is refused, or it becomes a space whose conversions stay in range.
#include "require.h"

#include "appkit/icc/profile.h"
#include "appkit/standard_spaces.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

using namespace chroma::builtin;
using fuzz::require;

namespace {

// Returns whether a conversion yields components in range. A refused conversion counts as in range.
bool staysInRange(const SpaceDefinition& from, const SpaceDefinition& to, float level) {
    float channels[maxChannels];
    float converted[maxChannels];
    std::fill(std::begin(channels), std::end(channels), level);
    if (isSameSpace(from, to) || !convertChannels(from, channels, to, converted)) return true;
    const bool isLab = to.model == ColorModel::lab;
    return std::all_of(converted, converted + to.channels, [isLab](float channel) {
        return isLab ? channel >= -128 && channel <= 127 : channel >= 0 && channel <= 1;
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const SpacePointer space = spaceFromProfile(data, size);
    if (!space) return 0;
    const auto& profile = space->profile;
    require(space->channels >= 1 && space->channels <= maxChannels, "a space has channels");
    require(profile.size() <= size && std::equal(profile.begin(), profile.end(), data),
            "a space stores its profile unchanged");

    const SpacePointer again = spaceFromProfile(profile.data(), profile.size());
    require(again && again->name == space->name && again->model == space->model && again->channels == space->channels &&
                again->convertsToXyz == space->convertsToXyz && again->convertsFromXyz == space->convertsFromXyz,
            "a stored profile describes the same space");

    for (const auto& row : space->fromXyz)
        require(std::all_of(row.begin(), row.end(), [](double value) { return std::isfinite(value); }),
                "a matrix is invertible");

    constexpr float levels[] = {-1e30F, 0.5F, 1, std::numeric_limits<float>::quiet_NaN()};
    for (const auto standard : {StandardSpace::genericGray, StandardSpace::genericCMYK, StandardSpace::sRGB}) {
        const SpaceDefinition& other = *standardDefinition(standard);
        for (const float level : levels)
            require(staysInRange(*space, other, level) && staysInRange(other, *space, level),
                    "converted components are in range");
    }
    return 0;
}

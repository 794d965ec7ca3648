#include "appkit/space_definition.h"

#include <algorithm>

namespace chroma::builtin {
namespace {

using Channels = std::array<double, maxChannels>;

// CMYK with full black generation.
Vector3 rgbFromCmyk(const Channels& cmyk) {
    const double light = 1 - cmyk[3];
    return {(1 - cmyk[0]) * light, (1 - cmyk[1]) * light, (1 - cmyk[2]) * light};
}

void cmykFromRgb(const Vector3& rgb, Channels& cmyk) {
    const double light = std::max({rgb[0], rgb[1], rgb[2]});
    for (std::size_t index = 0; index < 3; ++index) {
        cmyk[index] = light > 0 ? (light - rgb[index]) / light : 0;
    }
    cmyk[3] = 1 - light;
}

Vector3 xyzFromRgb(const SpaceDefinition& space, const Vector3& rgb) {
    Vector3 linear;
    for (std::size_t index = 0; index < 3; ++index) {
        linear[index] = space.curves[index].toLinear(rgb[index]);
    }
    return space.toXyz * linear;
}

Vector3 rgbFromXyz(const SpaceDefinition& space, const Vector3& xyz) {
    const Vector3 linear = space.fromXyz * xyz;
    Vector3 rgb;
    for (std::size_t index = 0; index < 3; ++index) {
        rgb[index] = clip(space.curves[index].toEncoded(linear[index]));
    }
    return rgb;
}

// The RGB space in which a colour of the space is first expressed: the space itself, or its complement.
const SpaceDefinition& rgbSpaceOf(const SpaceDefinition& space) {
    return space.model == ColorModel::cmyk ? *space.complement : space;
}

Vector3 rgbOf(const SpaceDefinition& space, const Channels& channels) {
    if (space.model == ColorModel::cmyk) return rgbFromCmyk(channels);
    return {channels[0], channels[1], channels[2]};
}

Vector3 xyzOf(const SpaceDefinition& space, const Channels& channels) {
    if (space.model != ColorModel::gray) return xyzFromRgb(rgbSpaceOf(space), rgbOf(space, channels));
    const double luminance = space.curves[0].toLinear(channels[0]);
    return {d50White[0] * luminance, d50White[1] * luminance, d50White[2] * luminance};
}

void setRgb(const SpaceDefinition& space, const Vector3& rgb, Channels& channels) {
    if (space.model == ColorModel::cmyk) {
        cmykFromRgb(rgb, channels);
    } else {
        std::copy(rgb.begin(), rgb.end(), channels.begin());
    }
}

} // namespace

double clip(double value) { return value > 0 ? std::min(value, 1.0) : 0; }

bool isSameSpace(const SpaceDefinition& first, const SpaceDefinition& second) {
    return &first == &second || (!first.profile.empty() && first.profile == second.profile);
}

bool convertChannels(const SpaceDefinition& from, const float* channels, const SpaceDefinition& to, float* converted) {
    if (isSameSpace(from, to)) {
        std::copy(channels, channels + from.channels, converted);
        return true;
    }
    if (!from.isConvertible || !to.isConvertible) return false;

    Channels source{};
    std::transform(channels, channels + from.channels, source.begin(), [](float channel) { return clip(channel); });

    Channels target{};
    const bool hasGray = from.model == ColorModel::gray || to.model == ColorModel::gray;
    if (!hasGray && isSameSpace(rgbSpaceOf(from), rgbSpaceOf(to))) {
        setRgb(to, rgbOf(from, source), target);
    } else if (to.model == ColorModel::gray) {
        target[0] = clip(to.curves[0].toEncoded(xyzOf(from, source)[1]));
    } else {
        setRgb(to, rgbFromXyz(rgbSpaceOf(to), xyzOf(from, source)), target);
    }
    std::transform(target.begin(), target.begin() + static_cast<std::ptrdiff_t>(to.channels), converted,
                   [](double channel) { return static_cast<float>(channel); });
    return true;
}

} // namespace chroma::builtin

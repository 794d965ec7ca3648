#include "appkit/space_definition.h"

#include <algorithm>
#include <cmath>

namespace chroma::builtin {
namespace {

// CMYK with full black generation.
Vector3 rgbFromCmyk(const Channels& cmyk) {
    const double light = 1 - cmyk[3];
    return {(1 - cmyk[0]) * light, (1 - cmyk[1]) * light, (1 - cmyk[2]) * light};
}

Channels cmykFromRgb(const Vector3& rgb) {
    Channels cmyk{};
    const double light = std::max({rgb[0], rgb[1], rgb[2]});
    for (std::size_t i = 0; i < 3; ++i)
        cmyk[i] = light > 0 ? (light - rgb[i]) / light : 0;
    cmyk[3] = 1 - light;
    return cmyk;
}

Vector3 xyzFromRgb(const SpaceDefinition& space, const Vector3& rgb) {
    Vector3 linear;
    for (std::size_t i = 0; i < 3; ++i)
        linear[i] = space.curves[i].toLinear(rgb[i]);
    return space.toXyz * linear;
}

// Removes rounding errors: linear light that is almost neutral or almost white becomes neutral or white.
void takeOutRounding(Vector3& linear) {
    constexpr double noise = 1e-12;
    const auto [least, most] = std::minmax({linear[0], linear[1], linear[2]});
    if (most - least > noise) return;
    linear.fill(std::abs(most - 1) > noise ? most : 1);
}

Vector3 rgbFromXyz(const SpaceDefinition& space, const Vector3& xyz) {
    Vector3 linear = space.fromXyz * xyz;
    takeOutRounding(linear);
    Vector3 rgb;
    for (std::size_t i = 0; i < 3; ++i)
        rgb[i] = clip(space.curves[i].toEncoded(linear[i]));
    return rgb;
}

// Returns the RGB space through which colours of the space are converted: the space itself or its complement. Returns null
// if the space is converted differently.
const SpaceDefinition* rgbSpaceOf(const SpaceDefinition& space) {
    if (space.complement) return space.complement.get();
    return space.model == ColorModel::rgb ? &space : nullptr;
}

Vector3 rgbOf(const SpaceDefinition& space, const Channels& channels) {
    if (space.complement) return rgbFromCmyk(channels);
    return {channels[0], channels[1], channels[2]};
}

Channels fromRgb(const SpaceDefinition& space, const Vector3& rgb) {
    if (space.complement) return cmykFromRgb(rgb);
    return {rgb[0], rgb[1], rgb[2]};
}

Vector3 xyzOf(const SpaceDefinition& space, const Channels& channels) {
    if (space.tableToXyz) return icc::toXyz(*space.tableToXyz, channels);
    if (const SpaceDefinition* const rgb = rgbSpaceOf(space)) return xyzFromRgb(*rgb, rgbOf(space, channels));
    const double luminance = space.curves[0].toLinear(channels[0]);
    return {d50White[0] * luminance, d50White[1] * luminance, d50White[2] * luminance};
}

Channels fromXyz(const SpaceDefinition& space, const Vector3& xyz) {
    if (space.tableFromXyz) return icc::fromXyz(*space.tableFromXyz, xyz);
    if (const SpaceDefinition* const rgb = rgbSpaceOf(space)) return fromRgb(space, rgbFromXyz(*rgb, xyz));
    return {clip(space.curves[0].toEncoded(xyz[1]))};
}

// An RGB space and its complement are converted directly, not through XYZ.
bool shareRgb(const SpaceDefinition& first, const SpaceDefinition& second) {
    const SpaceDefinition* const one = rgbSpaceOf(first);
    const SpaceDefinition* const other = rgbSpaceOf(second);
    return one && other && isSameSpace(*one, *other);
}

} // namespace

bool isSameSpace(const SpaceDefinition& first, const SpaceDefinition& second) {
    return &first == &second || (!first.profile.empty() && first.profile == second.profile);
}

bool convertChannels(const SpaceDefinition& from, const float* channels, const SpaceDefinition& to, float* converted) {
    if (!from.convertsToXyz || !to.convertsFromXyz) return false;

    Channels source{};
    for (std::size_t i = 0; i < from.channels; ++i)
        source[i] = from.model == ColorModel::lab ? channels[i] : clip(channels[i]);
    const Channels target = shareRgb(from, to) ? fromRgb(to, rgbOf(from, source)) : fromXyz(to, xyzOf(from, source));
    std::transform(target.begin(), target.begin() + static_cast<std::ptrdiff_t>(to.channels), converted,
                   [](double channel) { return static_cast<float>(channel); });
    return true;
}

} // namespace chroma::builtin

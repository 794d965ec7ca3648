#include "appkit/hsb.h"

#include "appkit/space_definition.h"

#include <algorithm>
#include <cmath>

namespace chroma::builtin {

Vector3 rgbFromHsb(const Vector3& hsb) {
    const double saturation = clip(hsb[1]);
    const double brightness = clip(hsb[2]);
    // Computed in single precision, so that any rounding of 1/3 is exactly a third of the circle.
    const double sixth = static_cast<float>(clip(hsb[0])) * 6.0F;

    Vector3 rgb;
    for (std::size_t i = 0; i < 3; ++i) {
        // The distance of the hue from the channel's own, in sixths of the circle. Up to 1 the channel is full, from 2 on
        // it is empty.
        const double around = std::fmod(sixth - 2 * static_cast<double>(i) + 9, 6) - 3;
        const double share = clip(2 - std::abs(around));
        rgb[i] = brightness * (1 - saturation * (1 - share));
    }
    return rgb;
}

Vector3 hsbFromRgb(const Vector3& rgb) {
    const double red = clip(rgb[0]);
    const double green = clip(rgb[1]);
    const double blue = clip(rgb[2]);
    const double brightest = std::max({red, green, blue});
    const double range = brightest - std::min({red, green, blue});
    if (range <= 0) return {0, 0, brightest};

    double sixth;
    if (brightest == red) {
        sixth = (green - blue) / range;
    } else if (brightest == green) {
        sixth = (blue - red) / range + 2;
    } else {
        sixth = (red - green) / range + 4;
    }
    if (sixth < 0) sixth += 6;
    return {sixth / 6, range / brightest, brightest};
}

} // namespace chroma::builtin

// Hue, saturation and brightness: another way to write an RGB colour.
#pragma once

#include "appkit/colorimetry.h"

namespace chroma::builtin {

// All values are in 0..1; values outside are clipped. Hue 0, 1/3 and 2/3 are red, green and blue. A grey has hue and
// saturation 0.
Vector3 rgbFromHsb(const Vector3& hsb);
Vector3 hsbFromRgb(const Vector3& rgb);

} // namespace chroma::builtin

// Colour components on their way between host and platform: both directions go through single precision.
#pragma once

#include "platform/objc.h"

namespace chroma::color {

inline CGFloat component(double value) { return static_cast<CGFloat>(static_cast<float>(value)); }

} // namespace chroma::color

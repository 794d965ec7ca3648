// Colour components on their way to the platform are narrowed to single precision, whatever the platform's own precision
// is.
#pragma once

#include "platform/objc.h"

namespace chroma::color {

inline CGFloat component(double value) { return static_cast<CGFloat>(static_cast<float>(value)); }

} // namespace chroma::color

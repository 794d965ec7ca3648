// The names of the kinds of colour space, as string objects.
#pragma once

#include "foundation/string.h"

namespace chroma::builtin::spaceName {

extern String calibratedWhite;
extern String calibratedBlack;
extern String calibratedRGB;
extern String deviceWhite;
extern String deviceBlack;
extern String deviceRGB;
extern String deviceCMYK;
extern String named;
extern String pattern;
extern String custom;

} // namespace chroma::builtin::spaceName

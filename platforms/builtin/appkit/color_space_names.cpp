#include "appkit/color_space_names.h"

#include "builtin/constants.h"

namespace chroma::builtin::spaceName {

String calibratedWhite{u"NSCalibratedWhiteColorSpace"};
String calibratedBlack{u"NSCalibratedBlackColorSpace"};
String calibratedRGB{u"NSCalibratedRGBColorSpace"};
String deviceWhite{u"NSDeviceWhiteColorSpace"};
String deviceBlack{u"NSDeviceBlackColorSpace"};
String deviceRGB{u"NSDeviceRGBColorSpace"};
String deviceCMYK{u"NSDeviceCMYKColorSpace"};
String named{u"NSNamedColorSpace"};
String pattern{u"NSPatternColorSpace"};
String custom{u"NSCustomColorSpace"};

} // namespace chroma::builtin::spaceName

namespace chroma {

namespace spaceName = builtin::spaceName;

const id NSCalibratedWhiteColorSpace = &spaceName::calibratedWhite;
const id NSCalibratedBlackColorSpace = &spaceName::calibratedBlack;
const id NSCalibratedRGBColorSpace = &spaceName::calibratedRGB;
const id NSDeviceWhiteColorSpace = &spaceName::deviceWhite;
const id NSDeviceBlackColorSpace = &spaceName::deviceBlack;
const id NSDeviceRGBColorSpace = &spaceName::deviceRGB;
const id NSDeviceCMYKColorSpace = &spaceName::deviceCMYK;
const id NSNamedColorSpace = &spaceName::named;
const id NSPatternColorSpace = &spaceName::pattern;
const id NSCustomColorSpace = &spaceName::custom;

} // namespace chroma

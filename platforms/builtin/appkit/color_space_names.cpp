#include "appkit/color_space_names.h"

#include "builtin/constants.h"

namespace chroma::builtin::spaceName {

String calibratedWhite{"NSCalibratedWhiteColorSpace"};
String calibratedBlack{"NSCalibratedBlackColorSpace"};
String calibratedRGB{"NSCalibratedRGBColorSpace"};
String deviceWhite{"NSDeviceWhiteColorSpace"};
String deviceBlack{"NSDeviceBlackColorSpace"};
String deviceRGB{"NSDeviceRGBColorSpace"};
String deviceCMYK{"NSDeviceCMYKColorSpace"};
String named{"NSNamedColorSpace"};
String pattern{"NSPatternColorSpace"};
String custom{"NSCustomColorSpace"};

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

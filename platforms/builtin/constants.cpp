// The exported string constants. All of them are constant-initialised, so that they are valid before anything has run.
#pragma GCC visibility push(default)
#include "builtin/constants.h"
#pragma GCC visibility pop

#include "appkit/color_space_names.h"
#include "foundation/exception.h"

namespace chroma::builtin {

namespace exceptionName {

String generic{u"NSGenericException"};
String invalidArgument{u"NSInvalidArgumentException"};
String malloc{u"NSMallocException"};
String range{u"NSRangeException"};
String colorListNotEditable{u"NSColorListNotEditableException"};

} // namespace exceptionName

namespace spaceName {

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

} // namespace spaceName

} // namespace chroma::builtin

namespace chroma {

namespace spaceName = builtin::spaceName;
namespace exceptionName = builtin::exceptionName;

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

const id NSGenericException = &exceptionName::generic;
const id NSInvalidArgumentException = &exceptionName::invalidArgument;
const id NSRangeException = &exceptionName::range;
const id NSColorListNotEditableException = &exceptionName::colorListNotEditable;

} // namespace chroma

// The string constants of the builtin platform's Foundation and AppKit. They are constant-initialised objects, which can be
// read before any platform code has run. Their values are their names.
#pragma once

namespace chroma {

struct Object;
using id = Object*;

#pragma GCC visibility push(default)
extern "C" {

// Colour spaces.
extern const id NSCalibratedWhiteColorSpace;
extern const id NSCalibratedBlackColorSpace;
extern const id NSCalibratedRGBColorSpace;
extern const id NSDeviceWhiteColorSpace;
extern const id NSDeviceBlackColorSpace;
extern const id NSDeviceRGBColorSpace;
extern const id NSDeviceCMYKColorSpace;
extern const id NSNamedColorSpace;
extern const id NSPatternColorSpace;
extern const id NSCustomColorSpace;

// Exceptions.
extern const id NSInvalidArgumentException;
extern const id NSRangeException;
extern const id NSColorListNotEditableException;
}
#pragma GCC visibility pop

} // namespace chroma

// The shared methods of NSColorZRX. Each answers a new reference to a host object that holds the colour which the platform's
// class makes, or nil. Components are narrowed to single precision and otherwise unchecked; what the platform refuses it
// refuses with an exception, which becomes a host exception.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/system_colors.h"

namespace chroma::color {

REALobjectStruct* colorWithDisplayP3Red(double red, double green, double blue, double alpha);
REALobjectStruct* colorWithGenericGamma22White(double white, double alpha);
REALobjectStruct* colorWithDeviceCyan(double cyan, double magenta, double yellow, double black, double alpha);
REALobjectStruct* colorWithDeviceRed(double red, double green, double blue, double alpha);
REALobjectStruct* colorWithDeviceHue(double hue, double saturation, double brightness, double alpha);
REALobjectStruct* colorWithDeviceWhite(double white, double alpha);
REALobjectStruct* colorWithSRGBRed(double red, double green, double blue, double alpha);
REALobjectStruct* colorWithCalibratedRed(double red, double green, double blue, double alpha);
REALobjectStruct* colorWithCalibratedHue(double hue, double saturation, double brightness, double alpha);
REALobjectStruct* colorWithCalibratedWhite(double white, double alpha);

// `space` is an NSColorSpaceZRX object; null or empty is passed to the platform as nil.
REALobjectStruct* colorWithColorSpaceHSV(REALobjectStruct* space, double hue, double saturation, double brightness,
                                         double alpha);

// The components of the space and alpha, 2 to 20 in all; another number raises an "OutOfBoundsException", a null or empty
// space a "NilObjectException".
REALobjectStruct* colorWithColorSpace(REALobjectStruct* space, REALarrayDouble* components);

// The handle is a CGColor's, borrowed; 0 is passed on as null.
REALobjectStruct* colorWithCGColor(HostInteger handle);

// The colour on the general pasteboard; nil when there is none.
REALobjectStruct* colorFromPasteboard();

// `image` is an object of the sibling plugin's NSImageZRX; anything else, null or an empty one gives nil.
REALobjectStruct* colorWithPatternImage(REALobjectStruct* image);

REALobjectStruct* scrubberTexturedBackgroundColor();

#define CHROMA_DECLARE(name) REALobjectStruct* get##name();
CHROMA_SYSTEM_COLORS(CHROMA_DECLARE)
#undef CHROMA_DECLARE

} // namespace chroma::color

// The shared methods of NSColorZRX. Each returns a new reference to a host object that holds the colour that the platform
// creates, or nil. Components are narrowed to single precision and not checked. If the platform refuses them, its exception
// becomes a host exception.
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

// `components` are those of the space and alpha, 2 to 20 in all; another number raises an "OutOfBoundsException". A null or
// empty space raises a "NilObjectException".
REALobjectStruct* colorWithColorSpace(REALobjectStruct* space, REALarrayDouble* components);

// `handle` is a CGColor, borrowed; 0 is passed as null.
REALobjectStruct* colorWithCGColor(HostInteger handle);

// Returns the colour on the general pasteboard, or nil if there is none.
REALobjectStruct* colorFromPasteboard();

// `image` is an object of the sibling plugin's NSImageZRX. Null, an empty object and any other object return nil.
REALobjectStruct* colorWithPatternImage(REALobjectStruct* image);

REALobjectStruct* scrubberTexturedBackgroundColor();

#define CHROMA_DECLARE(name) REALobjectStruct* get##name();
CHROMA_SYSTEM_COLORS(CHROMA_DECLARE)
#undef CHROMA_DECLARE

} // namespace chroma::color

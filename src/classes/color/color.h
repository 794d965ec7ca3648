// NSColorZRX, the host class around one NSColor: the functions that its class record binds.
//
// `object` is an NSColorZRX object or null. For null and for an object without a colour every function returns its null
// result: nil, 0, 0.0, the empty string or an empty array, and 0.0 in by-reference outputs. Unless documented otherwise, an
// NSException becomes a host exception and the function returns its null result.
#pragma once

#include "chromabridge/host_abi.h"

namespace chroma::color {

extern REALclassDefinition NSColorClass;

// Lifecycle
void NSColorConstructor(REALobjectStruct* object);
void NSColorDestructor(REALobjectStruct* object);

// The constructors with arguments fill an empty object. An object that already holds a colour keeps it and raises an
// "UnsupportedOperationException". The fourth byte of `c` is alpha, 255 is opaque. Red, green or blue outside -1.0 to 2.0
// raise an "OutOfBoundsException"; alpha is not checked.
void ConstructorColor(REALobjectStruct* object, HostColor c);
void ConstructorRGB(REALobjectStruct* object, double red, double green, double blue, double alpha);

// Returns the colour's CGColor as an integer, borrowed: it lives as long as the platform keeps it for the colour.
HostInteger getCGColor(REALobjectStruct* object);

// Always returns nil. Its declaration introduces the class of bridged platform exceptions as a result type.
REALobjectStruct* DummyException(REALobjectStruct* object);

// Return the components of the colour's own space; a colour of another kind raises. Outputs are set to 0.0 first.
void getCyan(REALobjectStruct* object, double* cyan, double* magenta, double* yellow, double* black);
void getCyanA(REALobjectStruct* object, double* cyan, double* magenta, double* yellow, double* black, double* alpha);
void getWhite(REALobjectStruct* object, double* white);
void getWhiteA(REALobjectStruct* object, double* white, double* alpha);
void getHue(REALobjectStruct* object, double* hue, double* saturation, double* brightness);
void getRed(REALobjectStruct* object, double* red, double* green, double* blue);

// The variants with alpha convert a colour of another kind to calibrated RGB.
void getHueA(REALobjectStruct* object, double* hue, double* saturation, double* brightness, double* alpha);
void getRedA(REALobjectStruct* object, double* red, double* green, double* blue, double* alpha);

// Returns all components in the platform's order, at most 32, in a new array that the caller owns.
REALarrayDouble* getComponents(REALobjectStruct* object);

// Returns the colour as a host colour value, converted to generic RGB if it is of another kind. Each channel is truncated
// and clamped to one byte; the fourth byte is 0.
HostColor colorValue(REALobjectStruct* object, REALword parameter);

// Returns the number of components, including alpha.
HostInteger numberOfComponents(REALobjectStruct* object, REALword parameter);

// Return a new reference to the host object of a colour derived from this one, or nil. Null and empty arguments are passed
// as nil.
REALobjectStruct* blendedColorWithFraction(REALobjectStruct* object, double alpha, REALobjectStruct* c);
REALobjectStruct* colorWithAlphaComponent(REALobjectStruct* object, double alpha);
REALobjectStruct* colorUsingColorSpaceName(REALobjectStruct* object, REALstringStruct* name);
REALobjectStruct* colorUsingColorSpace(REALobjectStruct* object, REALobjectStruct* colorSpace);
REALobjectStruct* shadowWithLevel(REALobjectStruct* object, double level);
REALobjectStruct* highlightWithLevel(REALobjectStruct* object, double level);

// Return a new reference to the NSColorSpaceZRX object of the colour's space and to the NSImageZRX object of its pattern,
// or nil if the sibling plugin that registers the class is absent.
REALobjectStruct* colorSpace(REALobjectStruct* object);
REALobjectStruct* patternImage(REALobjectStruct* object);

// Puts the colour on the general pasteboard.
void writeToPasteboard(REALobjectStruct* object);

// Property getters, named after their message. They return 0.0 or the empty string, without an exception, if the colour
// does not respond.
#define CHROMA_COLOR_NUMBERS(X)                                                                                             \
    X(blackComponent)                                                                                                       \
    X(yellowComponent)                                                                                                      \
    X(magentaComponent)                                                                                                     \
    X(cyanComponent)                                                                                                        \
    X(redComponent)                                                                                                         \
    X(greenComponent)                                                                                                       \
    X(blueComponent)                                                                                                        \
    X(whiteComponent)                                                                                                       \
    X(hueComponent)                                                                                                         \
    X(saturationComponent)                                                                                                  \
    X(brightnessComponent)                                                                                                  \
    X(alphaComponent)

#define CHROMA_COLOR_STRINGS(X)                                                                                             \
    X(colorSpaceName)                                                                                                       \
    X(description)                                                                                                          \
    X(catalogNameComponent)                                                                                                 \
    X(colorNameComponent)                                                                                                   \
    X(localizedCatalogNameComponent)                                                                                        \
    X(localizedColorNameComponent)

#define CHROMA_DECLARE(name) double name(REALobjectStruct* object, REALword parameter);
CHROMA_COLOR_NUMBERS(CHROMA_DECLARE)
#undef CHROMA_DECLARE
#define CHROMA_DECLARE(name) REALstringStruct* name(REALobjectStruct* object, REALword parameter);
CHROMA_COLOR_STRINGS(CHROMA_DECLARE)
#undef CHROMA_DECLARE

} // namespace chroma::color

// NSColorZRX, the host class around one NSColor: the functions that its record binds.
//
// `object` is an NSColorZRX object or null. Null, or an object that holds no colour, gives every function's null result:
// nil, 0, 0.0, the empty string or an empty array, and 0.0 in by-reference outputs. Unless said otherwise an NSException of
// the platform becomes a host exception and gives the null result too.
#pragma once

#include "chromabridge/host_abi.h"

namespace chroma::color {

extern REALclassDefinition NSColorClass;

// Lifecycle
void NSColorConstructor(REALobjectStruct* object);
void NSColorDestructor(REALobjectStruct* object);

// The constructors with arguments fill an empty object; one that holds a colour keeps it and raises an
// "UnsupportedOperationException". The fourth byte of `c` is alpha, 255 opaque. Red, green and blue outside -1.0 to 2.0
// raise an "OutOfBoundsException"; alpha is not checked.
void ConstructorColor(REALobjectStruct* object, HostColor c);
void ConstructorRGB(REALobjectStruct* object, double red, double green, double blue, double alpha);

// The colour's CGColor as an integer, borrowed: it lives as long as the platform keeps it for the colour.
HostInteger getCGColor(REALobjectStruct* object);

// Always nil. Its declaration makes the class of bridged platform exceptions known as a result type.
REALobjectStruct* DummyException(REALobjectStruct* object);

// The components of the colour's own space; a colour of another kind raises. An output is 0.0 before anything else happens.
void getCyan(REALobjectStruct* object, double* cyan, double* magenta, double* yellow, double* black);
void getCyanA(REALobjectStruct* object, double* cyan, double* magenta, double* yellow, double* black, double* alpha);
void getWhite(REALobjectStruct* object, double* white);
void getWhiteA(REALobjectStruct* object, double* white, double* alpha);
void getHue(REALobjectStruct* object, double* hue, double* saturation, double* brightness);
void getRed(REALobjectStruct* object, double* red, double* green, double* blue);

// With alpha, hue and red of a colour of another kind are those of its conversion to calibrated RGB.
void getHueA(REALobjectStruct* object, double* hue, double* saturation, double* brightness, double* alpha);
void getRedA(REALobjectStruct* object, double* red, double* green, double* blue, double* alpha);

// All components in the platform's order, at most 32, in a new array that the caller owns.
REALarrayDouble* getComponents(REALobjectStruct* object);

// The colour as a host colour value, converted to generic RGB where it is of another kind. Each channel is truncated, and
// clamped to its byte; the fourth byte is 0.
HostColor colorValue(REALobjectStruct* object, REALword parameter);

// The number of components, alpha included.
HostInteger numberOfComponents(REALobjectStruct* object, REALword parameter);

// Another colour made from this one: a new reference to its host object, or nil. Null and empty arguments are passed on as
// nil.
REALobjectStruct* blendedColorWithFraction(REALobjectStruct* object, double alpha, REALobjectStruct* c);
REALobjectStruct* colorWithAlphaComponent(REALobjectStruct* object, double alpha);
REALobjectStruct* colorUsingColorSpaceName(REALobjectStruct* object, REALstringStruct* name);
REALobjectStruct* colorUsingColorSpace(REALobjectStruct* object, REALobjectStruct* colorSpace);
REALobjectStruct* shadowWithLevel(REALobjectStruct* object, double level);
REALobjectStruct* highlightWithLevel(REALobjectStruct* object, double level);

// A new reference to the NSColorSpaceZRX object of the colour's space, and to the NSImageZRX object of its pattern; nil
// where the sibling plugin that has the class is absent.
REALobjectStruct* colorSpace(REALobjectStruct* object);
REALobjectStruct* patternImage(REALobjectStruct* object);

// Puts the colour on the general pasteboard.
void writeToPasteboard(REALobjectStruct* object);

// Property getters named after their message: a colour that does not answer gives 0.0 or the empty string, and no exception.
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

// The platform's named colours: the plain ones and the catalog "System".
#pragma once

#include "appkit/color_contents.h"

namespace chroma::builtin {

struct Color;

// A colour in sRGB, 0 to 255, and its alpha.
struct Shade {
    int red, green, blue;
    double alpha;
};

// A colour of the catalog in the light and the dark appearance.
struct CatalogColor {
    const char* name; // also the name of its class method
    Shade light;
    Shade dark;
};

struct CatalogColors {
    const CatalogColor* colors;
    std::size_t count;
};

// Returns the colours in alphabetical order, the order of the platform's colour list.
CatalogColors catalogColors();

// Returns null if the catalog has no such colour.
const CatalogColor* findCatalogColor(std::u16string_view name);

// Returns the single object of a catalog colour, which is never freed.
Color* colorOf(const CatalogColor& catalogColor);

// Returns the represented colour as an autoreleased sRGB colour. CHROMABRIDGE_APPEARANCE=dark selects the dark appearance.
Color* resolved(const CatalogColor& catalogColor);

Category categoryOfNamedColors();

} // namespace chroma::builtin

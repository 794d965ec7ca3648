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

// A colour of the catalog, and what it looks like in the light and in the dark appearance.
struct CatalogColor {
    const char* name; // also the class method that answers it
    Shade light;
    Shade dark;
};

struct CatalogColors {
    const CatalogColor* colors;
    std::size_t count;
};

// In alphabetical order, the order of the platform's colour list.
CatalogColors catalogColors();

// Null when the catalog has no such colour.
const CatalogColor* findCatalogColor(std::u16string_view name);

// The one object of a catalog colour, which is never freed.
Color* colorOf(const CatalogColor& catalogColor);

// The colour that it stands for, as autoreleased sRGB colour: in the dark appearance when CHROMABRIDGE_APPEARANCE is "dark".
Color* resolved(const CatalogColor& catalogColor);

Category categoryOfNamedColors();

} // namespace chroma::builtin

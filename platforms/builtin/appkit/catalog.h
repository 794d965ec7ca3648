// The platform's named colours: the plain ones and the catalog "System".
#pragma once

#include "appkit/color_contents.h"

namespace chroma::builtin {

struct Color;

// A colour of the catalog, and what it looks like in the light appearance: calibrated grey or RGB, opaque.
struct CatalogColor {
    const char* name; // also the class method that answers it
    bool isGray;
    float components[3];
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

// The colour that it stands for, as autoreleased component colour.
Color* resolved(const CatalogColor& catalogColor);

Category categoryOfNamedColors();

} // namespace chroma::builtin

// NSColorSpace: the object around a space definition.
#pragma once

#include "appkit/standard_spaces.h"

namespace chroma::builtin {

struct CGColorSpaceObject;
struct ProfileObject;

struct ColorSpace : Object {
    static ClassObject cls;

    ColorSpace();
    ~ColorSpace();

    SpacePointer definition; // never null
    LazyRef<CGColorSpaceObject> handle;
    LazyRef<ProfileObject> profile;
};

ClassTable tableOfNSColorSpace();

// Returns the single object of a standard space, which is never freed.
ColorSpace* standardSpace(StandardSpace space);

// Returns the space of a colour-space name, or null for nil and for other names.
ColorSpace* spaceForName(id name);

} // namespace chroma::builtin

// NSColorSpace: an object for a space definition.
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

// The one object of a standard space, which is never freed.
ColorSpace* standardSpace(StandardSpace space);

// The space that a colour-space name stands for: null for nil and for names that stand for none.
ColorSpace* spaceForName(id name);

} // namespace chroma::builtin

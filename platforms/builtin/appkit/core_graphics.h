// The handles under colours and spaces: what CGColor and CGColorSpace hand out. A handle knows all of what it stands for, and
// lives as long as the object that handed it out unless someone retains it.
#pragma once

#include "appkit/color_contents.h"

namespace chroma::builtin {

struct CGColorSpaceObject : Object {
    static ClassObject cls;

    SpacePointer definition;
};

struct CGColorObject : Object {
    static ClassObject cls;

    ColorContents contents;
};

ClassTable tableOfCGColorSpace();
ClassTable tableOfCGColor();

} // namespace chroma::builtin

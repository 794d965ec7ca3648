// The handles under colours and spaces: what CGColor, CGColorSpace and colorSyncProfile hand out. A handle knows all of what
// it stands for, and lives as long as the object that handed it out unless someone retains it.
#pragma once

#include "appkit/color_contents.h"

namespace chroma::builtin {

struct CGColorSpaceObject : Object {
    static ClassObject cls;

    SpacePointer definition;
};

// A ColorSync profile: of spaces that have profile data.
struct ProfileObject : Object {
    static ClassObject cls;

    SpacePointer definition;
};

struct CGColorObject : Object {
    static ClassObject cls;

    ColorContents contents;
};

ClassTable tableOfCGColorSpace();
ClassTable tableOfCGColor();
ClassTable tableOfColorSyncProfile();

} // namespace chroma::builtin

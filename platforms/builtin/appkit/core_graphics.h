// The handles of colours and spaces, which CGColor, CGColorSpace and colorSyncProfile return. A handle contains all data of
// its object. It lives as long as the object that returned it, or longer if it is retained.
#pragma once

#include "appkit/color_contents.h"

namespace chroma::builtin {

struct CGColorSpaceObject : Object {
    static ClassObject cls;

    SpacePointer definition;
};

// A ColorSync profile; only spaces with profile data have one.
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

// NSImage: as much of an image as a pattern colour needs, an object with a size.
#pragma once

#include "foundation/nsobject.h"

namespace chroma::builtin {

struct Size {
    float width;
    float height;
};

struct Image : Object {
    static ClassObject cls;

    Size size{0, 0};
};

ClassTable tableOfNSImage();

} // namespace chroma::builtin

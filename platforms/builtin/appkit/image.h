// NSImage: as much of an image as a pattern colour needs, a size and the colour behind whatever would be drawn.
#pragma once

#include "appkit/color.h"

namespace chroma::builtin {

struct Size {
    CGFloat width;
    CGFloat height;
};

struct Image : Object {
    static ClassObject cls;

    Size size{0, 0};
    Ref<Color> backgroundColor; // null: none
};

ClassTable tableOfNSImage();

} // namespace chroma::builtin

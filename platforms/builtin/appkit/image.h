// NSImage as a pattern colour needs it: a size and a background colour. Nothing is drawn.
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

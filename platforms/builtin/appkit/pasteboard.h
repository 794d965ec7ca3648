// NSPasteboard: the general pasteboard, in this process only.
#pragma once

#include "appkit/color_contents.h"

namespace chroma::builtin {

struct Pasteboard : Object {
    static ClassObject cls;

    bool hasColor = false;
    ColorContents color;
};

ClassTable tableOfNSPasteboard();

} // namespace chroma::builtin

// CFDictionary: a mutable map of plain pointers.
#pragma once

#include "corefoundation/pointer_map.h"
#include "foundation/nsobject.h"

namespace chroma::builtin {

struct Dictionary : Object {
    static ClassObject cls;

    PointerMap values;
};

ClassTable tableOfNSMutableDictionary();

} // namespace chroma::builtin

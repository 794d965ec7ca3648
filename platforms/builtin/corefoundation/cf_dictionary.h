// CFDictionary: a mutable map of plain pointers.
#pragma once

#include "foundation/nsobject.h"

#include <unordered_map>

namespace chroma::builtin {

struct Dictionary : Object {
    static ClassObject cls;

    std::unordered_map<const void*, const void*> values;
};

ClassTable tableOfNSMutableDictionary();

} // namespace chroma::builtin

#pragma once

#include "foundation/nsobject.h"

namespace chroma::builtin {

struct AutoreleasePool : Object {
    static ClassObject cls;

    std::size_t height = SIZE_MAX; // of the thread's stack when the pool was opened
};

ClassTable tableOfNSAutoreleasePool();

} // namespace chroma::builtin

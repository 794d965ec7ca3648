// NSArray: an immutable list of retained objects, and the enumerator that walks it.
#pragma once

#include "foundation/nsobject.h"

#include <vector>

namespace chroma::builtin {

struct Array : Object {
    static ClassObject cls;

    ~Array() {
        for (Object* const element : elements) {
            release(element);
        }
    }

    void append(Object* element) { elements.push_back(retain(element)); } // while the array is being made

    std::vector<Object*> elements;
};

// Keeps its array alive until it has walked it.
struct Enumerator : Object {
    static ClassObject cls;

    Ref<Array> array;
    std::size_t next = 0;
};

ClassTable tableOfNSArray();
ClassTable tableOfNSEnumerator();

} // namespace chroma::builtin

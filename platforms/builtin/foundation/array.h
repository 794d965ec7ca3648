// NSArray: an immutable list of retained objects, and the enumerator that walks it.
#pragma once

#include "foundation/nsobject.h"

#include <vector>

namespace chroma::builtin {

struct Array : Object {
    static ClassObject cls;

    ~Array() {
        for (Object* const element : elements)
            release(element);
    }

    void append(Object* element) { elements.push_back(retain(element)); } // only while the array is being built

    std::vector<Object*> elements;
};

// Retains its array until the last element has been returned.
struct Enumerator : Object {
    static ClassObject cls;

    Ref<Array> array;
    std::size_t next = 0;
};

ClassTable tableOfNSArray();
ClassTable tableOfNSEnumerator();

} // namespace chroma::builtin

// The registered classes and their own methods. One lock guards everything; only the dispatch tables are read without it.
#pragma once

#include "runtime/object.h"

namespace chroma::builtin {

// Returns null if no class has the name.
ClassObject* findClass(const char* name);

// Returns the selector's function in the class or a superclass, or null.
IMP findImplementation(ClassObject& cls, SEL selector);

// Returns the function that a message calls, never null. Searches the superclasses and adds the function to the dispatch
// table.
[[gnu::noinline]] IMP resolve(ClassObject& cls, SEL selector);

// The same, from the dispatch table if the function is already there.
inline IMP lookUp(ClassObject& cls, SEL selector) {
    DispatchTable& table = *cls.dispatch.load(std::memory_order_acquire);
    if (selector->index < table.size)
        if (const IMP known = table.slots()[selector->index].load(std::memory_order_relaxed)) return known;
    return resolve(cls, selector);
}

} // namespace chroma::builtin

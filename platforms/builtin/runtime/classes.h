// The registered classes and their own methods. All of it is guarded by one lock; only the dispatch tables are read without
// it.
#pragma once

#include "runtime/object.h"

namespace chroma::builtin {

// null when no class has the name.
ClassObject* findClass(const char* name);

// The function for the selector up the superclasses, null when there is none.
IMP findImplementation(ClassObject& cls, SEL selector);

// The function that a message reaches, never null: found up the superclasses and entered in the dispatch table.
[[gnu::noinline]] IMP resolve(ClassObject& cls, SEL selector);

// The same from the dispatch table, where it is after the first time.
inline IMP lookUp(ClassObject& cls, SEL selector) {
    DispatchTable& table = *cls.dispatch.load(std::memory_order_acquire);
    if (selector->index < table.size) {
        if (const IMP known = table.slots()[selector->index].load(std::memory_order_relaxed)) return known;
    }
    return resolve(cls, selector);
}

} // namespace chroma::builtin

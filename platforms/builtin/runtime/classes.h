// The registered classes and their own methods. All of it is guarded by one lock; only the dispatch tables are read without it.
#pragma once

#include "runtime/object.h"

namespace chroma::builtin {

// null when no class has the name.
ClassObject* findClass(const char* name);

// The function for the selector up the superclasses, null when there is none.
IMP findImplementation(ClassObject& cls, SEL selector);

// The function that a message reaches, from the dispatch table or entered there; never null.
IMP lookUp(ClassObject& cls, SEL selector);

} // namespace chroma::builtin

// The stack of autoreleased objects of each thread. A pool is an entry of the stack like any other: draining it releases
// what was pushed after it, inner pools included, so that pools which an exception left open go with the enclosing one.
#pragma once

#include "runtime/object.h"

namespace chroma::builtin {

// Takes over one reference, to be released when the innermost pool is drained; without a pool, when the thread ends. When it
// throws std::bad_alloc, the reference has been released.
void pushAutoreleased(Object* object);

// The number of entries: a pool notes it before it pushes itself.
std::size_t autoreleaseHeight();

// Whether the entry at the height is the object, which is then taken off without being released.
bool takeAutoreleased(std::size_t height, const Object* object);

// Releases the entries down to the height, the latest first, those included that are pushed meanwhile.
void drainAutoreleased(std::size_t height);

} // namespace chroma::builtin

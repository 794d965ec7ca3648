// Each thread's stack of autoreleased objects. A pool is an entry of the stack like any other. Draining a pool releases
// everything above it, including inner pools, so pools that an exception left open are drained with the enclosing pool.
#pragma once

#include "runtime/object.h"

namespace chroma::builtin {

// Takes ownership of one reference and releases it when the innermost pool is drained or, without a pool, when the thread
// exits. If it throws std::bad_alloc, it has released the reference.
void pushAutoreleased(Object* object);

// Returns the number of entries. A pool records it before it pushes itself.
std::size_t autoreleaseHeight();

// Returns whether the entry at the height is the object; if so, removes the entry without releasing the object.
bool takeAutoreleased(std::size_t height, const Object* object);

// Releases the entries above the height, the newest first, including entries that are pushed meanwhile.
void drainAutoreleased(std::size_t height);

} // namespace chroma::builtin

// The memory of host objects and strings. A host that checks its plugins puts guard bytes after each block. It retains
// released blocks for a while, filled with a pattern.
#pragma once

#include <cstddef>
#include <string>

namespace host::memory {

// Returns a block, or null when memory is exhausted. The second function fills it with zeros.
void* allocate(std::size_t size);
void* allocateZeroed(std::size_t size);
// Releases a block. Null is allowed.
void release(void* block);

// Enables the checks for all blocks that are allocated from now on. Call it before the first allocation.
void beginChecking();
bool isChecking();

// Returns whether a block starts at the address and has not been released. Valid only while checks are enabled.
bool isAlive(const void* address);

// The memory that a plugin has overwritten since the last call.
struct Damage {
    bool beyond = false;   // the guard bytes after a block
    bool released = false; // a released block
};
Damage takeDamage();

} // namespace host::memory

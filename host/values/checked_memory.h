// The memory of host objects and strings. A host that checks its plugins puts guard bytes behind each block and keeps
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

// Checks all blocks that are allocated from now on. Call it before the first one.
void beginChecking();
bool isChecking();

// Returns whether a block starts at the address and has not been released. Only while checking.
bool isAlive(const void* address);

// What a plugin wrote over since the last call.
struct Damage {
    bool beyond = false;   // the bytes behind a block
    bool released = false; // a released block
};
Damage takeDamage();

} // namespace host::memory

// Registration of the platform's classes: once, at the first call of the C interface.
#pragma once

#include <atomic>

namespace chroma::builtin {

inline std::atomic<bool> platformIsReady{false};

// Registers every class of the platform; other threads wait meanwhile. Ends the process if memory is exhausted. Defined
// next to the list of classes.
void registerPlatform() noexcept;

// Every exported function that may be a process's first call starts with this.
inline void ensurePlatform() {
    if (!platformIsReady.load(std::memory_order_acquire)) registerPlatform();
}

} // namespace chroma::builtin

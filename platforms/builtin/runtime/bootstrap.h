// Registration of the platform's classes: once, at the first call of the C interface.
#pragma once

#include <atomic>

namespace chroma::builtin {

inline std::atomic<bool> platformIsReady{false};

// Registers every class of the platform, while other threads wait. Aborts the process if memory is exhausted. Defined next
// to the list of classes.
void registerPlatform() noexcept;

// Every exported function that a process may call first starts with this.
inline void ensurePlatform() {
    if (!platformIsReady.load(std::memory_order_acquire)) registerPlatform();
}

} // namespace chroma::builtin

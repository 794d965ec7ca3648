// Registration of the platform's classes: once, on the first call of the C interface.
#pragma once

#include <atomic>

namespace chroma::builtin {

inline std::atomic<bool> platformIsReady{false};

// Registers every class of the platform; the other callers wait meanwhile. The process ends when there is no memory for
// them. Defined beside the list of classes.
void registerPlatform() noexcept;

// Called first by every exported function that can be anyone's first call.
inline void ensurePlatform() {
    if (!platformIsReady.load(std::memory_order_acquire)) registerPlatform();
}

} // namespace chroma::builtin

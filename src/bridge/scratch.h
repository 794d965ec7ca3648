// Temporary memory that is freed on every path, including native exceptions.
#pragma once

#include "platform/guard.h"

#include <cstddef>
#include <cstdlib>

namespace chroma {

// Calls use(memory) with room for `count` elements of a plain type on the heap, filled with zeros, or with null if memory
// is exhausted.
template <class T, class Use>
void withHeap(std::size_t count, Use use) {
    T* const heap = static_cast<T*>(std::calloc(count, sizeof(T)));
    withCleanup([&] { use(heap); }, [&] { std::free(heap); });
}

// The same, but up to `shortCount` elements are on the stack.
template <class T, std::size_t shortCount, class Use>
void withScratch(std::size_t count, Use use) {
    if (count <= shortCount) {
        T local[shortCount];
        return use(local);
    }
    withHeap<T>(count, use);
}

} // namespace chroma

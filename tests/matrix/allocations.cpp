// Counts the heap blocks of this process. These definitions precede those of every library.
#include "driver.h"

#include <atomic>
#include <new>

#if CHROMA_SANITIZED
#define CHROMA_HEAP(name) __interceptor_##name
#else
#define CHROMA_HEAP(name) __libc_##name
#endif

extern "C" {
void* CHROMA_HEAP(malloc)(std::size_t size);
void* CHROMA_HEAP(calloc)(std::size_t count, std::size_t size);
void* CHROMA_HEAP(realloc)(void* memory, std::size_t size);
void CHROMA_HEAP(free)(void* memory);
extern const char __executable_start, etext;
}

namespace {

std::atomic<std::size_t> blocks{0};

// On a foreign platform only allocations of the program fail, which includes the plugin.
bool fails(const void* caller) {
    if (host::validator::suspensions > 0) return false; // especially before the process is initialised
    if (CHROMA_ON_GNUSTEP && (caller < &__executable_start || caller >= &etext)) return false;
    return host::validator::injects(matrix::Fault::failAllocation, matrix::Fault::exhaustMemory);
}

void* counted(void* memory) {
    blocks.fetch_add(memory ? 1 : 0, std::memory_order_relaxed);
    return memory;
}

void* allocateOrThrow(std::size_t size, const void* caller) {
    void* const memory = fails(caller) ? nullptr : counted(CHROMA_HEAP(malloc)(size));
    return memory ? memory : throw std::bad_alloc();
}

} // namespace

std::size_t matrix::liveBlocks() { return CHROMA_ON_GNUSTEP ? 0 : blocks.load(std::memory_order_relaxed); }

#pragma GCC visibility push(default)
#define CHROMA_CALLER __builtin_return_address(0)
extern "C" {
void* malloc(std::size_t size) noexcept { return fails(CHROMA_CALLER) ? nullptr : counted(CHROMA_HEAP(malloc)(size)); }
void* calloc(std::size_t count, std::size_t size) noexcept {
    return fails(CHROMA_CALLER) ? nullptr : counted(CHROMA_HEAP(calloc)(count, size));
}
void* realloc(void* memory, std::size_t size) noexcept {
    if (fails(CHROMA_CALLER)) return nullptr;
    void* const moved = CHROMA_HEAP(realloc)(memory, size);
    return memory ? moved : counted(moved);
}
void free(void* memory) noexcept {
    blocks.fetch_sub(memory ? 1 : 0, std::memory_order_relaxed);
    CHROMA_HEAP(free)(memory);
}
}
void* operator new(std::size_t size) { return allocateOrThrow(size, CHROMA_CALLER); }
void* operator new[](std::size_t size) { return allocateOrThrow(size, CHROMA_CALLER); }
void operator delete(void* memory) noexcept { free(memory); }
void operator delete[](void* memory) noexcept { free(memory); }
void operator delete(void* memory, std::size_t) noexcept { free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { free(memory); }
#pragma GCC visibility pop

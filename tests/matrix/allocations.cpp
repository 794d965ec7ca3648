// The C and the C++ heap of this process, counted. The program's definitions come before those of every library.
#include "faults.h"

#include <atomic>
#include <cerrno>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define CHROMA_HEAP(name) __interceptor_##name
#else
#define CHROMA_HEAP(name) __libc_##name
#endif

extern "C" {
void* CHROMA_HEAP(malloc)(std::size_t size);
void* CHROMA_HEAP(calloc)(std::size_t count, std::size_t size);
void* CHROMA_HEAP(realloc)(void* memory, std::size_t size);
void CHROMA_HEAP(free)(void* memory);
#if defined(CHROMA_ON_GNUSTEP)
extern const char __executable_start, etext;
#endif
}

namespace {

std::atomic<std::ptrdiff_t> blocks{0};

// On a platform that nobody here wrote only the program's own allocations fail, and the plugin is a part of the program.
bool mayFail([[maybe_unused]] const void* caller) {
#if defined(CHROMA_ON_GNUSTEP)
    return caller >= &__executable_start && caller < &etext;
#else
    return true;
#endif
}

bool fails(const void* caller) {
    if (!mayFail(caller) || !matrix::strikes(matrix::Fault::FailAllocation, matrix::Fault::ExhaustMemory)) return false;
    errno = ENOMEM;
    return true;
}

void* counted(void* memory) {
    if (memory) blocks.fetch_add(1, std::memory_order_relaxed);
    return memory;
}

void* allocate(std::size_t size, const void* caller) { return fails(caller) ? nullptr : counted(CHROMA_HEAP(malloc)(size)); }

void* allocateOrThrow(std::size_t size, const void* caller) {
    if (void* const memory = allocate(size ? size : 1, caller)) return memory;
    throw std::bad_alloc();
}

void give(void* memory) {
    if (memory) blocks.fetch_sub(1, std::memory_order_relaxed);
    CHROMA_HEAP(free)(memory);
}

} // namespace

std::size_t matrix::liveBlocks() { return static_cast<std::size_t>(blocks.load(std::memory_order_relaxed)); }

#pragma GCC visibility push(default)
extern "C" {
void* malloc(std::size_t size) noexcept { return allocate(size, __builtin_return_address(0)); }
void* calloc(std::size_t count, std::size_t size) noexcept {
    return fails(__builtin_return_address(0)) ? nullptr : counted(CHROMA_HEAP(calloc)(count, size));
}
void* realloc(void* memory, std::size_t size) noexcept {
    if (fails(__builtin_return_address(0))) return nullptr;
    void* const moved = CHROMA_HEAP(realloc)(memory, size);
    return memory ? moved : counted(moved);
}
void free(void* memory) noexcept { give(memory); }
}

void* operator new(std::size_t size) { return allocateOrThrow(size, __builtin_return_address(0)); }
void* operator new[](std::size_t size) { return allocateOrThrow(size, __builtin_return_address(0)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size, __builtin_return_address(0)); }
void operator delete(void* memory) noexcept { give(memory); }
void operator delete[](void* memory) noexcept { give(memory); }
void operator delete(void* memory, std::size_t) noexcept { give(memory); }
void operator delete[](void* memory, std::size_t) noexcept { give(memory); }
#pragma GCC visibility pop

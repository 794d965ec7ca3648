// Replaces malloc of the C library for the entire process, counts the calls and forwards them. The operators new of C++
// call malloc too.
#include "allocations.h"

#include <cerrno>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {
std::size_t count = 0;
}

extern "C" {
void* malloc(std::size_t size) {
    ++count;
    return __libc_malloc(size);
}

void* calloc(std::size_t number, std::size_t size) {
    ++count;
    return __libc_calloc(number, size);
}

void* realloc(void* block, std::size_t size) {
    ++count;
    return __libc_realloc(block, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    ++count;
    return __libc_memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
    ++count;
    *block = __libc_memalign(alignment, size);
    return *block ? 0 : ENOMEM;
}
}

namespace bench {

std::size_t allocations() { return count; }

} // namespace bench

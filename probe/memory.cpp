#include "probe/memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak)); // null without a sanitizer

namespace probe {

std::size_t allocatedBytes() {
    if (__sanitizer_get_current_allocated_bytes) return __sanitizer_get_current_allocated_bytes();
#if defined(__GLIBC__) && (__GLIBC__ > 2 || __GLIBC_MINOR__ >= 33)
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#else
    return 0;
#endif
}

} // namespace probe

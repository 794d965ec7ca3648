// What a slice expects of macOS, on the builtin platform: its runtime's part in catching, its stack guard, its variadic
// calls, and its loader's last act, the protection of segments.
#include "builtin/objc_runtime.h"

#include <sys/mman.h>

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <typeinfo>

#define CHROMA_INSIDE __attribute__((visibility("hidden")))

extern "C" {

void* __cxa_begin_catch(void* exception) noexcept;

// The object that was thrown.
CHROMA_INSIDE chroma::id macos_objc_begin_catch(void* exception) {
    return reinterpret_cast<chroma::id>(*static_cast<chroma::ThrownObject*>(__cxa_begin_catch(exception)));
}

// Compared before and after, and otherwise any word. The first byte is one that ends a string.
CHROMA_INSIDE extern const std::uintptr_t macos_stack_chk_guard = 0x5BD1E995A7C43F00;

#if defined(__aarch64__)
// Arguments without a parameter are on the stack on Apple's arm64, a word each. Here too, once the parameters have taken all
// of the registers for numbers.
CHROMA_INSIDE int macos_snprintf(char* text, std::size_t capacity, const char* format, long, long, long, long, long last,
                                 ...) {
    std::va_list list;
    va_start(list, last);
    list.__vr_offs = 0; // nor is any in vector registers
    const int length = std::vsnprintf(text, capacity, format, list);
    va_end(list);
    return length;
}
#endif

// Written by the translator; the last has no size.
struct SegmentProtection {
    void* begin;
    std::size_t size;
    long protection;
};
CHROMA_INSIDE extern const SegmentProtection chroma_segments[];
}

namespace {

// What a slice catches is of this type, which it names itself.
[[gnu::used]] const std::type_info& caught = typeid(chroma::ThrownObject);

[[gnu::constructor]] void protectSegments() {
    for (const SegmentProtection* segment = chroma_segments; segment->size; ++segment) {
        if (mprotect(segment->begin, segment->size, static_cast<int>(segment->protection)) == 0) continue;
        std::perror("the slice's segments cannot be protected");
        std::abort();
    }
}

} // namespace

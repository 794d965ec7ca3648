// Provides on the builtin platform what a slice expects of macOS: the runtime's retain counts and caught exceptions, the
// stack guard, variadic calls, and the loader's last step, the protection of segments.
#include "builtin/objc_runtime.h"

#include <dlfcn.h>
#include <sys/mman.h>

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <typeinfo>

#define CHROMA_INSIDE __attribute__((visibility("hidden")))

namespace {

// Calls a method that every object has, as the runtime itself does. The tests neither count nor fail this call, because it
// is not a message.
chroma::id count(chroma::id object, const char* selector) {
    const chroma::SEL message = chroma::sel_registerName(selector);
    const chroma::IMP method = chroma::class_getMethodImplementation(chroma::object_getClass(object), message);
    return reinterpret_cast<chroma::id (*)(chroma::id, chroma::SEL)>(method)(object, message);
}

// Releases the thrown object that an exception retained.
void releaseThrown(void* exception) {
    count(reinterpret_cast<chroma::id>(*static_cast<chroma::ThrownObject*>(exception)), "release");
}

} // namespace

extern "C" {

// Replaces the C++ library's function in the program that links this file. A throw retains an object.
__attribute__((visibility("default"))) void __cxa_throw(void* exception, std::type_info* type, void (*destroy)(void*)) {
    static const auto throwIt =
        reinterpret_cast<void (*)(void*, std::type_info*, void (*)(void*))>(dlsym(RTLD_NEXT, "__cxa_throw"));
    const bool isObject =
        *type == typeid(chroma::ThrownObject) && *static_cast<chroma::ThrownObject*>(exception) != chroma::ThrownObject{};
    if (isObject) count(reinterpret_cast<chroma::id>(*static_cast<chroma::ThrownObject*>(exception)), "retain");
    throwIt(exception, type, isObject ? releaseThrown : destroy);
    std::abort();
}

CHROMA_INSIDE chroma::id macos_objc_retainAutorelease(chroma::id object) {
    count(object, "retain");
    try {
        return count(object, "autorelease");
    } catch (const std::bad_alloc&) { // it has released the object; on macOS the process would exit
        return object;
    }
}

void* __cxa_begin_catch(void* exception) noexcept;

// Returns the thrown object.
CHROMA_INSIDE chroma::id macos_objc_begin_catch(void* exception) {
    return reinterpret_cast<chroma::id>(*static_cast<chroma::ThrownObject*>(__cxa_begin_catch(exception)));
}

// The stack guard, an arbitrary word that is compared before and after. Its first byte is zero, which ends a string.
CHROMA_INSIDE extern const std::uintptr_t macos_stack_chk_guard = 0x5BD1E995A7C43F00;

#if defined(__aarch64__)
// On Apple's arm64, each variadic argument takes a word on the stack. Here the same happens once the parameters have used
// all integer registers.
CHROMA_INSIDE int macos_snprintf(char* text, std::size_t capacity, const char* format, long, long, long, long, long last,
                                 ...) {
    std::va_list list;
    va_start(list, last);
    list.__vr_offs = 0; // no argument is in a vector register either
    const int length = std::vsnprintf(text, capacity, format, list);
    va_end(list);
    return length;
}
#endif

// Written by the translator. The last element has size 0.
struct SegmentProtection {
    void* begin;
    std::size_t size;
    long protection;
};
CHROMA_INSIDE extern const SegmentProtection chroma_segments[];
}

namespace {

// The type that a slice catches. The slice refers to it by name.
[[gnu::used]] const std::type_info& caught = typeid(chroma::ThrownObject);

[[gnu::constructor]] void protectSegments() {
    for (const SegmentProtection* segment = chroma_segments; segment->size; ++segment) {
        if (mprotect(segment->begin, segment->size, static_cast<int>(segment->protection)) == 0) continue;
        std::perror("the slice's segments cannot be protected");
        std::abort();
    }
}

} // namespace

// What a slice expects of macOS, on the builtin platform: how its runtime counts and catches what is thrown, its stack
// guard, its variadic calls, and its loader's last act, the protection of segments.
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

// Calls a method of every object as the runtime itself does: it is no message that a test could count or fail.
chroma::id count(chroma::id object, const char* selector) {
    const chroma::SEL message = chroma::sel_registerName(selector);
    const chroma::IMP method = chroma::class_getMethodImplementation(chroma::object_getClass(object), message);
    return reinterpret_cast<chroma::id (*)(chroma::id, chroma::SEL)>(method)(object, message);
}

// Destroys an exception, which held a reference to the thrown object.
void releaseThrown(void* exception) {
    count(reinterpret_cast<chroma::id>(*static_cast<chroma::ThrownObject*>(exception)), "release");
}

} // namespace

extern "C" {

// Takes the place of the C++ library's function in the program that links this: a throw retains an object.
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
    } catch (const std::bad_alloc&) { // which has released the object, and ends the process there
        return object;
    }
}

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

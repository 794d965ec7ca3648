// The guard of runtimes whose native exceptions are jumps: a jump buffer per guard, kept by the runtime in a chain.
#include "platform/guard.h"
#include "platform/selectors.h"

#include <csetjmp>

namespace chroma {
namespace {

// What the runtime keeps per guard: the buffer that a throw jumps to, and words of its own behind it.
struct GuardRecord {
    std::jmp_buf buffer;
    void* runtimeWords[4];
};

} // namespace

extern "C" {
void objc_exception_try_enter(void* guard);
void objc_exception_try_exit(void* guard);
id objc_exception_extract(void* guard);
int objc_exception_match(id exceptionClass, id exception);
[[noreturn]] void objc_exception_throw(id exception);
}

id runGuarded(void (*body)(void*), void* context) {
    GuardRecord guard;
    objc_exception_try_enter(&guard);
    if (_setjmp(guard.buffer) != 0) return objc_exception_extract(&guard);
    try {
        body(context);
    } catch (...) {
        objc_exception_try_exit(&guard);
        throw;
    }
    objc_exception_try_exit(&guard);
    return nullptr;
}

void throwNative(id object) { objc_exception_throw(object); }

bool isNSException(id object) { return objc_exception_match(cls::NSException.get(), object) != 0; }

} // namespace chroma

// The guard of runtimes whose native exceptions are jumps: a jump buffer per guard, which the runtime keeps in a chain.
#include "platform/guard.h"
#include "platform/selectors.h"

namespace chroma {

// A guard's buffer must be set in the function that stays active, by the setjmp that the runtime's jump belongs to.
#if defined(__APPLE__)
// On i386 the system's own setjmp, whichever C headers this file is compiled with.
static_assert(sizeof(void*) == 4);
using JumpBuffer = int[18];
extern "C" int _setjmp(JumpBuffer buffer) __attribute__((returns_twice));
#define CHROMA_MARK(buffer) _setjmp(buffer)
#else
// The compiler's own setjmp: it saves three words and no registers, so entering a guard costs less than half.
using JumpBuffer = void* [5];
#define CHROMA_MARK(buffer) __builtin_setjmp(buffer)
#endif

namespace {

// The layout of a guard: the buffer that a throw jumps to, followed by words for the runtime.
struct GuardRecord {
    JumpBuffer buffer;
    void* runtimeWords[4];
};
static_assert(sizeof(GuardRecord) == sizeof(JumpBuffer) + 4 * sizeof(void*));
#if defined(__APPLE__)
static_assert(sizeof(GuardRecord) == 88 && alignof(GuardRecord) == 4);
#endif

} // namespace

extern "C" {
void objc_exception_try_enter(void* guard);
void objc_exception_try_exit(void* guard);
id objc_exception_extract(void* guard);
int objc_exception_match(id exceptionClass, id exception);
[[noreturn]] void objc_exception_throw(id exception);
}

id chroma_guard_run(void (*body)(void*), void* context, id nothing) {
    GuardRecord guard;
    objc_exception_try_enter(&guard);
    if (CHROMA_MARK(guard.buffer) != 0) {
        const id thrown = objc_exception_extract(&guard);
        return thrown ? thrown : nothing;
    }
    try {
        body(context);
    } catch (...) {
        objc_exception_try_exit(&guard);
        throw;
    }
    objc_exception_try_exit(&guard);
    return nullptr;
}

void throwNative(id thrown) { objc_exception_throw(thrown == thrownNil() ? nullptr : thrown); }

bool isNSException(id thrown) { return thrown != thrownNil() && objc_exception_match(cls::NSException, thrown) != 0; }

} // namespace chroma

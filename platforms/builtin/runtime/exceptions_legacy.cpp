// Native exceptions in 32 bits: a chain of guards per thread, and a jump to the innermost one. Only this file jumps.
#include "runtime/exceptions.h"

#include "runtime/export.h"

namespace chroma::builtin {
namespace {

// The layout of a guard: the owner's buffer for __builtin_setjmp, then the runtime's words.
struct Guard {
    void* buffer[5];
    Guard* enclosing;
    id thrown;
    void* spare[2];
};

thread_local Guard* innermost = nullptr;

// Compilers agree on the buffer's first two words, the frame and the address to continue at. The third word is the stack
// pointer; if gcc saves a shadow stack, that takes the third word and the stack pointer moves to the fourth. The following
// form is what this file's own jump reads.
#if defined(__CET__) && (__CET__ & 2) && !defined(__clang__)
constexpr int stackWord = 3;
#else
constexpr int stackWord = 2;
#endif

// Converts the buffer of a guard that was compiled with any flags into that form. No 32-bit process has a shadow stack, so
// a saved one is null.
void unify(void* (&buffer)[5]) {
    void* const stack = buffer[2] ? buffer[2] : buffer[3];
    buffer[2] = nullptr;
    buffer[stackWord] = stack;
}

} // namespace

void watchForUncaught() {} // a throw itself finds that there is no guard

} // namespace chroma::builtin

namespace chroma {

using builtin::Guard;
using builtin::innermost;

BUILTIN_EXPORT void objc_exception_try_enter(void* guard) {
    auto* const entered = static_cast<Guard*>(guard);
    entered->enclosing = innermost;
    innermost = entered;
}

BUILTIN_EXPORT void objc_exception_try_exit(void* guard) { innermost = static_cast<Guard*>(guard)->enclosing; }

BUILTIN_EXPORT id objc_exception_extract(void* guard) { return static_cast<Guard*>(guard)->thrown; }

BUILTIN_EXPORT int objc_exception_match(id exceptionClass, id exception) {
    const builtin::ClassObject* const cls = builtin::asClass(exceptionClass);
    return cls && builtin::isKindOf(exception, *cls) ? 1 : 0;
}

BUILTIN_EXPORT void objc_exception_throw(id exception) {
    Guard* const guard = innermost;
    if (!guard) builtin::endUncaught(exception);
    innermost = guard->enclosing;
    guard->thrown = exception;
    builtin::unify(guard->buffer);
    __builtin_longjmp(guard->buffer, 1);
}

} // namespace chroma

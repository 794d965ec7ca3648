// Native exceptions: a chain of guards per thread, and jumps to the innermost. The only file that jumps.
#include "foundation/exception.h"
#include "runtime/export.h"
#include "runtime/message.h"

namespace chroma::builtin {
namespace {

// A guard as its owner lays it out: the buffer that it called __builtin_setjmp on, and room for the runtime.
struct Guard {
    void* buffer[5];
    Guard* enclosing;
    id thrown;
    void* spare[2];
};

thread_local Guard* innermost = nullptr;

} // namespace
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
    if (!guard) builtin::reportUncaught(exception);
    innermost = guard->enclosing;
    guard->thrown = exception;
    __builtin_longjmp(guard->buffer, 1);
}

} // namespace chroma

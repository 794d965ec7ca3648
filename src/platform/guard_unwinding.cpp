// The guard of runtimes whose native exceptions unwind the stack. Destructors run here, but the rule of guard.h still
// applies, because the same code also runs where they do not.
#include "platform/guard.h" // the guard itself is in guard_unwinding.m or in this header
#include "platform/selectors.h"

namespace chroma {

extern "C" {
id object_getClass(id object);
id class_getSuperclass(id cls);
[[noreturn]] void objc_exception_throw(id exception);
}

void throwNative(id thrown) { objc_exception_throw(thrown == thrownNil() ? nullptr : thrown); }

bool isNSException(id thrown) {
    if (thrown == thrownNil()) return false;
    id ancestor = object_getClass(thrown);
    while (ancestor && ancestor != cls::NSException)
        ancestor = class_getSuperclass(ancestor);
    return ancestor != nullptr;
}

} // namespace chroma

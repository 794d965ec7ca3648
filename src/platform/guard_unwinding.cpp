// The guard of runtimes whose native exceptions unwind the stack. Destructors run there; the rule of guard.h holds all the
// same, since the same code also runs where they do not.
#include "platform/guard.h" // whose guard is in guard_unwinding.m, or in the header
#include "platform/selectors.h"

namespace chroma {

extern "C" [[noreturn]] void objc_exception_throw(id exception);

void throwNative(id object) { objc_exception_throw(object); }

bool isNSException(id object) { return sel::isKindOfClass_(object, cls::NSException.get()) != 0; }

} // namespace chroma

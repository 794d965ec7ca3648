// Throwing from inside the platform, and the end of the process after a throw that nothing catches.
#pragma once

#include "runtime/object.h"

#include <cstdint>

namespace chroma::builtin {

// Throws the object: in 64 bits on the spot, since each frame on the way costs as much as a message.
#if defined(__LP64__)
[[noreturn, gnu::always_inline]] inline void throwObject(id object) {
    throw static_cast<ThrownObject>(reinterpret_cast<std::uintptr_t>(object));
}
#else
[[noreturn]] inline void throwObject(id object) { objc_exception_throw(object); }
#endif

// From now on `endUncaught` is called for what nothing catches.
void watchForUncaught();

// What objc_setUncaughtExceptionHandler sets, without registering the platform's classes.
UncaughtExceptionHandler exchangeUncaughtHandler(UncaughtExceptionHandler handler);

// Calls the handler and aborts.
[[noreturn]] void endUncaught(id thrown);

} // namespace chroma::builtin

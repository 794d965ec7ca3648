// Throws inside the platform, and aborts the process after an uncaught throw.
#pragma once

#include "runtime/object.h"

#include <cstdint>

namespace chroma::builtin {

// Throws the object. Inlined in 64 bits, because each frame between throw and guard costs as much as a message.
#if defined(__LP64__)
[[noreturn, gnu::always_inline]] inline void throwObject(id object) {
    throw static_cast<ThrownObject>(reinterpret_cast<std::uintptr_t>(object));
}
#else
[[noreturn]] inline void throwObject(id object) { objc_exception_throw(object); }
#endif

// Arranges that `endUncaught` is called for every uncaught exception.
void watchForUncaught();

// Sets the function that `endUncaught` calls, which must return.
void setUncaughtHandler(void (*handler)(id thrown));

// Calls the handler and aborts.
[[noreturn]] void endUncaught(id thrown);

} // namespace chroma::builtin

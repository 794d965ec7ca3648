// The end of the process after a throw that nothing catches.
#pragma once

#include "runtime/object.h"

namespace chroma::builtin {

// What objc_setUncaughtExceptionHandler sets, without registering the platform's classes.
UncaughtExceptionHandler exchangeUncaughtHandler(UncaughtExceptionHandler handler);

// Calls the handler and aborts.
[[noreturn]] void endUncaught(id thrown);

} // namespace chroma::builtin

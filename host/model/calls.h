// Calls of bound functions. The shape of a signature - a word or a double in each place, and the kind of the result - is turned
// into an invoker once; a call then costs one indirect call more than the function itself.
#pragma once

#include "model/declarations.h"

namespace host {

// Calls the function with the arguments in order and writes its result, if any. Arguments are borrowed; a counted result belongs
// to the caller. The function may record a pending exception (exceptions.h): check after the call.
using Invoker = void (*)(REALfunction function, const Slot* arguments, Slot* result);

constexpr std::size_t maximumArguments = 8; // the receiver included

// The invoker of `signature`, with the receiver as the first argument when `hasReceiver`; null when it has too many arguments.
Invoker invokerFor(const Signature& signature, bool hasReceiver);

// The invoker of the property getter (object, parameter word) -> type and of the setter (object, parameter word, value).
Invoker getterInvoker(const Type& type);
Invoker setterInvoker(const Type& type);

} // namespace host

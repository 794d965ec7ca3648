// What happens to messages that the receiver's class does not know.
#pragma once

#include "runtime/object.h"

namespace chroma::builtin {

// A function that tells the receiver that it does not recognise the selector, which raises. Serves every signature.
IMP unrecognizedMessage();

} // namespace chroma::builtin

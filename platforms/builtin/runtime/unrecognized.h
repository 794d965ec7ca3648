// Messages that the receiver's class does not know.
#pragma once

#include "runtime/object.h"

namespace chroma::builtin {

// Returns a function, valid for every signature, that sends the receiver doesNotRecognizeSelector:, which raises.
IMP unrecognizedMessage();

} // namespace chroma::builtin

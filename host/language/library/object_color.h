// The colour of a colour object.
#pragma once

#include "model/objects.h"
#include "values/strings.h"

namespace host::language {

// The function Hex of an object: returns the literal of a colour object's colour in sRGB. A bound function, whose result
// belongs to the caller. What is not a colour raises TypeMismatchException.
String* hexOfObject(Object* object);

} // namespace host::language

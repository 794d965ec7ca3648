// The colour of a colour object.
#pragma once

#include "model/objects.h"
#include "values/strings.h"

namespace host::language {

// The function Hex of an object: returns the literal of a colour object's colour in sRGB. A bound function; the caller owns
// the result. Raises TypeMismatchException if the object is not a colour.
String* hexOfObject(Object* object);

} // namespace host::language

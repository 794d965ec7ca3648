// What an object says of itself.
#pragma once

#include "model/objects.h"
#include "model/strings.h"

#include <string>

namespace host::language {

// The description of an object that has one, of an exception its class and message, of a file its class and path, of any
// other object its class and, if it has one, its name. Not for null; raises nothing.
std::string textOf(Object* object);

// The function Hex of an object: the literal of a colour object's colour in sRGB. A bound function, whose result belongs to
// the caller. What is not a colour raises TypeMismatchException.
String* hexOfObject(Object* object);

} // namespace host::language

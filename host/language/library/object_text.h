// What an object says of itself.
#pragma once

#include "model/objects.h"

#include <string>

namespace host::language {

// The description of an object that has one, of an exception its class and message, of a file its class and path, of any
// other object its class and, if it has one, its name. Not for null; raises nothing.
std::string textOf(Object* object);

} // namespace host::language

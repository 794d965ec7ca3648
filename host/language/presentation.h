// Readable forms of values.
#pragma once

#include "model/objects.h"
#include "values/types.h"
#include "values/values.h"

#include <string>

namespace host::language {

// Returns a value as Print shows it, in UTF-8. A number has the shortest form that reads back the same. A colour is shown
// as its literal, an object as its description, an array as its elements in parentheses, and a variant as the value it
// holds. The other values that are not text are True, False and Nil.
std::string textOf(const Type& type, Slot value);
std::string textOf(double value);
std::string textOf(HostInteger value);
std::string textOf(bool value);

// Returns the description of an object that has one. Otherwise returns an exception's class and message, a file's class and
// path, or an object's class and, if it has one, its name. The object must not be null. Raises nothing.
std::string textOf(Object* object);

// Receives the values of expressions that are typed at a prompt.
class Presenter {
public:
    virtual ~Presenter() = default;
    virtual void present(const Type& type, Slot value) = 0; // borrowed
};

} // namespace host::language

// Values as text, and numbers turned into others.
#pragma once

#include "model/types.h"
#include "model/values.h"

#include <string>

namespace host::language {

// As Print shows it: numbers in the shortest form that reads back the same, colours as the literal, True, False and Nil,
// objects as they describe themselves, arrays as their elements in parentheses, variants as what they hold. In UTF-8.
std::string textOf(const Type& type, Slot value);

std::string textOf(double value);
std::string textOf(HostInteger value);
std::string textOf(bool value);

} // namespace host::language

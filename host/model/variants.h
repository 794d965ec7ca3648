// Variants: a host value of any type as one object reference. Objects and arrays stand for themselves; other values are
// boxed in an object of a class that has no name in the language.
#pragma once

#include "model/conversions.h"
#include "model/objects.h"

namespace host {

// The value as a variant, with one reference for the caller; Nil is null. Throws std::bad_alloc.
Object* newVariant(const Type& type, Slot value);

// What a variant holds at this moment: a plain type, "Object" of the object's class, an array type, or Nil.
Type typeInVariant(const Object* variant);

// Reads a variant as `type`, borrowed. It converts as the held value would for the purpose, and Nil reads as the zero of
// every type. Otherwise raises TypeMismatchException (IllegalCastException between classes) and answers false.
bool readVariant(Object* variant, const Type& type, Slot& value, Purpose purpose = Purpose::argument);

} // namespace host

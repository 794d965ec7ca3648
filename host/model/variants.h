// Variants: a host value of any type as one object reference. Objects and arrays are their own variants; other values are
// boxed in an object of a class without a name in the language.
#pragma once

#include "model/conversions.h"
#include "model/objects.h"

namespace host {

// Returns the value as a variant with one reference for the caller; Nil is null. Throws std::bad_alloc.
Object* newVariant(const Type& type, Slot value);

// Returns the type of a variant's present value: a plain type, "Object" with the object's class, an array type, or Nil.
Type typeInVariant(const Object* variant);

// Reads a variant as `type`, borrowed. Converts like the held value would be converted for the purpose; Nil becomes the
// zero of every type. Otherwise raises TypeMismatchException (IllegalCastException between classes) and returns false.
bool readVariant(Object* variant, const Type& type, Slot& value, Purpose purpose = Purpose::argument);

// A value taken out of its variant. Objects, arrays and Nil are of Kind::object.
struct Held {
    Kind kind;
    Slot value;
};

Held heldIn(Object* variant);  // borrowed from it
Object* newVariant(Held held); // as above
void lock(Held held);
void unlock(Held held);

// Returns whether `=` considers both equal. Numbers and colours are compared by their number, text by its characters,
// references by identity. Not-a-number equals nothing. Equal values have the same hash.
bool areEqual(Held first, Held second);
std::size_t hashOf(Held held);

} // namespace host

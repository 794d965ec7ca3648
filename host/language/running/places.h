// Code for the places that hold values: variables and properties. Whoever writes a counted value gives the place a reference
// of its own. Elements of arrays are in array_operations.
#pragma once

#include "language/library/text_functions.h"
#include "language/running/code.h"
#include "language/running/frame.h"

#include "model/classes.h"

namespace host::language {

CodePtr readVariable(VariablePlace place, const Type& type);
CodePtr addressOfVariable(VariablePlace place); // for a by-reference argument
ActionPtr writeVariable(VariablePlace place, const Type& type, CodePtr value);

// A property of the object that `object` gives, which must not be Nil.
CodePtr readProperty(const Property& property, CodePtr object, Offset offset);
ActionPtr writeProperty(const Property& property, CodePtr object, CodePtr value, Offset offset);

// Joins texts to that of a variable, in place where nobody else has its string.
ActionPtr appendToVariable(VariablePlace place, std::vector<CodePtr> texts, Offset offset);
// The same in front of it.
ActionPtr prependToVariable(VariablePlace place, CodePtr text, Offset offset);
// Keeps the part of a variable's text that `part` computes from the number of characters and two numbers.
ActionPtr cutVariable(VariablePlace place, text::Part (*part)(HostInteger length, HostInteger a, HostInteger b), CodePtr a,
                      CodePtr b, Offset offset);

// Gives the variable a new value, of which it takes a reference.
void store(Frame& frame, VariablePlace place, Counting counting, Slot value);

// Raises NilObjectException for what is before the member's name at the offset.
[[noreturn]] void failNil(Frame& frame, Offset offset);

// The object itself; raises NilObjectException for Nil.
inline Object* requireObject(Frame& frame, Object* object, Offset offset) {
    if (!object) failNil(frame, offset);
    return object;
}

} // namespace host::language

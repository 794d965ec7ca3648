// Code for the places that hold values: variables and properties. Code that writes a counted value adds a reference for the
// place. Elements of arrays are in array_operations.h.
#pragma once

#include "language/library/text_functions.h"
#include "language/running/code.h"
#include "language/running/frame.h"

#include "model/classes.h"

namespace host::language {

CodePtr readVariable(VariablePlace place, const Type& type);
CodePtr addressOfVariable(VariablePlace place); // for a by-reference argument
ActionPtr writeVariable(VariablePlace place, const Type& type, CodePtr value);

// Reads a property of the object that `object` computes, which must not be Nil.
CodePtr readProperty(const Property& property, CodePtr object, Offset offset);
ActionPtr writeProperty(const Property& property, CodePtr object, CodePtr value, Offset offset);

// Appends texts to the text of a variable, in place if nothing else refers to its string.
ActionPtr appendToVariable(VariablePlace place, std::vector<CodePtr> texts, Offset offset);
// The same at the beginning of the text.
ActionPtr prependToVariable(VariablePlace place, CodePtr text, Offset offset);
// Cuts a variable's text to the characters that `part` selects by the number of characters and two numbers.
ActionPtr cutVariable(VariablePlace place, text::Part (*part)(HostInteger length, HostInteger a, HostInteger b), CodePtr a,
                      CodePtr b, Offset offset);

// Sets the variable to a new value and takes a reference to it.
void store(Frame& frame, VariablePlace place, Counting counting, Slot value);

// Raises NilObjectException for the expression before the member's name at the offset.
[[noreturn]] void failNil(Frame& frame, Offset offset);

// Returns the object; raises NilObjectException for Nil.
inline Object* requireObject(Frame& frame, Object* object, Offset offset) {
    if (!object) failNil(frame, offset);
    return object;
}

} // namespace host::language

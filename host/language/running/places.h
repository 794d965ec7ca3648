// Code for the places that hold values: variables, array elements, properties. Whoever writes a counted value gives the
// place a reference of its own.
#pragma once

#include "language/running/code.h"
#include "language/running/frame.h"

#include "model/arrays.h"
#include "model/classes.h"

namespace host::language {

CodePtr readVariable(VariablePlace place, const Type& type);
CodePtr addressOfVariable(VariablePlace place); // for a by-reference argument

// Elements of the array that `array` gives. Nil and an index out of bounds raise.
CodePtr readElement(CodePtr array, CodePtr index, const Type& elementType, Offset offset);
CodePtr upperBoundOf(CodePtr array, Offset offset);

// A property of the object that `object` gives, which must not be Nil.
CodePtr readProperty(const Property& property, CodePtr object, Offset offset);

ActionPtr writeVariable(VariablePlace place, const Type& type, CodePtr value);
ActionPtr writeElement(CodePtr array, CodePtr index, CodePtr value, Offset offset);
ActionPtr writeProperty(const Property& property, CodePtr object, CodePtr value, Offset offset);

// Joins texts to that of a variable, in place where nobody else has its string.
ActionPtr appendToVariable(VariablePlace place, std::vector<CodePtr> texts, Offset offset);

// A new array with the upper bound that `upperBound` gives.
CodePtr makeArray(const Type& elementType, CodePtr upperBound, Offset offset);
ActionPtr resizeArray(CodePtr array, CodePtr upperBound, Offset offset);

// These give no value. An index may be one past the end for inserting.
CodePtr appendToArray(CodePtr array, CodePtr value, Offset offset);
CodePtr insertIntoArray(CodePtr array, CodePtr index, CodePtr value, Offset offset);
CodePtr removeFromArray(CodePtr array, CodePtr index, Offset offset);

// Gives the variable a new value, of which it takes a reference.
void store(Frame& frame, VariablePlace place, Counting counting, Slot value);

// The array itself, after the checks that raise.
Array* requireArray(Object* array, Offset offset);
void requireIndex(const Array* array, HostInteger index, Offset offset);

// The object itself; raises NilObjectException for Nil.
inline Object* requireObject(Object* object, Offset offset) {
    if (!object) throwNew(offset, "NilObjectException", "A member of Nil was used.");
    return object;
}

} // namespace host::language

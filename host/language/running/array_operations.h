// Code for arrays: making them, their elements, and what they can do. Nil and an index out of bounds raise.
#pragma once

#include "language/running/code.h"
#include "language/running/frame.h"

#include "model/arrays.h"

namespace host::language {

// A new array with the upper bound that `upperBound` gives, or of the given values.
CodePtr makeArray(const Type& elementType, CodePtr upperBound, Offset offset);
CodePtr makeArrayOf(const Type& elementType, std::vector<CodePtr> elements);
ActionPtr resizeArray(CodePtr array, CodePtr upperBound, Offset offset);

CodePtr readElement(CodePtr array, CodePtr index, const Type& elementType, Offset offset);
ActionPtr writeElement(CodePtr array, CodePtr index, CodePtr value, Offset offset);
CodePtr upperBoundOf(CodePtr array, Offset offset);

// These give no value. An index may be one past the end for inserting.
CodePtr appendToArray(CodePtr array, CodePtr value, Offset offset);
CodePtr insertIntoArray(CodePtr array, CodePtr index, CodePtr value, Offset offset);
CodePtr removeFromArray(CodePtr array, CodePtr index, Offset offset);

// Whether elements of the type have an order.
bool isOrdered(const Type& elementType);

// These give no value. Sorting is stable; text sorts by code points, False before True. `keys` is null, or an array of as
// many elements by which the first is sorted too.
CodePtr sortArray(CodePtr array, CodePtr keys, const Type& keyType, Offset offset);
CodePtr reverseArray(CodePtr array, Offset offset);

// The first index from `start` on at which an element equals the value, or -1.
CodePtr indexInArray(CodePtr array, CodePtr value, CodePtr start, const Type& elementType, Offset offset);

// The last element, which is removed.
CodePtr popFromArray(CodePtr array, const Type& elementType, Offset offset);

// A new array of up to `count` elements from `start` on; null: all.
CodePtr sliceOfArray(CodePtr array, CodePtr start, CodePtr count, const Type& elementType, Offset offset);

// The array itself, after the checks that raise.
Array* requireArray(Object* array, Offset offset);
void requireIndex(const Array* array, HostInteger index, Offset offset);

} // namespace host::language

// Code for arrays: their construction, elements and operations. Nil and an index out of bounds raise.
#pragma once

#include "language/running/code.h"
#include "language/running/frame.h"

#include "model/arrays.h"

namespace host::language {

// Create a new array, with the upper bound that `upperBound` computes or with the given values.
CodePtr makeArray(const Type& elementType, CodePtr upperBound, Offset offset);
CodePtr makeArrayOf(const Type& elementType, std::vector<CodePtr> elements);
ActionPtr resizeArray(CodePtr array, CodePtr upperBound, Offset offset);

CodePtr readElement(CodePtr array, CodePtr index, const Type& elementType, Offset offset);
ActionPtr writeElement(CodePtr array, CodePtr index, CodePtr value, Offset offset);
CodePtr upperBoundOf(CodePtr array, Offset offset);

// These have no value. An index for an insertion may be one past the end.
CodePtr appendToArray(CodePtr array, CodePtr value, Offset offset);
CodePtr insertIntoArray(CodePtr array, CodePtr index, CodePtr value, Offset offset);
CodePtr removeFromArray(CodePtr array, CodePtr index, Offset offset);

// Returns whether elements of the type have an order.
bool isOrdered(const Type& elementType);

// These have no value. Sorting is stable; text is sorted by code points, and False is before True. `keys` is null, or an
// array with as many elements, by which the first array is sorted too.
CodePtr sortArray(CodePtr array, CodePtr keys, const Type& keyType, Offset offset);
CodePtr reverseArray(CodePtr array, Offset offset);

// Returns the first index from `start` on whose element equals the value, or -1.
CodePtr indexInArray(CodePtr array, CodePtr value, CodePtr start, const Type& elementType, Offset offset);

// Removes and returns the last element.
CodePtr popFromArray(CodePtr array, const Type& elementType, Offset offset);

// Creates an array of up to `count` elements from `start` on; all elements if `count` is null.
CodePtr sliceOfArray(CodePtr array, CodePtr start, CodePtr count, const Type& elementType, Offset offset);

// Returns the array after the checks that raise.
Array* requireArray(Object* array, Offset offset);
void requireIndex(const Array* array, HostInteger index, Offset offset);

} // namespace host::language

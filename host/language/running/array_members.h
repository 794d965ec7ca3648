// What arrays can do beside growing and shrinking. Nil raises.
#pragma once

#include "language/reading/source.h"
#include "language/running/code.h"

namespace host::language {

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

} // namespace host::language

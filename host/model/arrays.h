// One-dimensional host arrays of every element type. An array is an object: lock and unlock it as one.
#pragma once

#include "model/objects.h"

#include <cstdint>
#include <vector>

// The contract has a name only for the array of doubles; all arrays of this host have its form.
struct _REALarrayDouble : REALobjectStruct {};

namespace host {

using Array = ::_REALarrayDouble;

// A new array with indexes 0 to upperBound, elements zero, Nil or empty; one reference for the caller. This and everything
// that makes an array longer throws std::bad_alloc or std::length_error when memory is exhausted.
Array* newArray(const Type& elementType, std::int32_t upperBound = -1);

bool isArray(const Object* object); // false for null
Array* asArray(Object* object);     // null when it is none

const Type& elementType(const Array* array);
std::int32_t upperBound(const Array* array); // -1 when empty

// The index of each of these must be in bounds (`appendElement` has none); the caller checks and raises.
inline bool inBounds(const Array* array, HostInteger index) { return index >= 0 && index <= upperBound(array); }
Slot elementAt(const Array* array, HostInteger index);           // borrowed
void setElement(Array* array, HostInteger index, Slot value);    // the array takes a reference of its own
void insertElement(Array* array, HostInteger index, Slot value); // before index; index may be one past the end
void appendElement(Array* array, Slot value);
void removeElement(Array* array, HostInteger index);

// Puts the element order[i] at index i; `order` has every index once.
void reorder(Array* array, const std::vector<std::size_t>& order);

// Cuts or extends to indexes 0 to upperBound (-1 or more); new elements are zero, Nil or empty.
void resize(Array* array, std::int32_t upperBound);

} // namespace host

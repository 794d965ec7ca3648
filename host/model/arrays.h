// One-dimensional host arrays of every element type. An array is an object, locked and unlocked as one.
#pragma once

#include "model/objects.h"

#include <cstdint>
#include <vector>

// The contract names only the array of doubles; all arrays of this host have the same form.
struct _REALarrayDouble : REALobjectStruct {};

namespace host {

using Array = ::_REALarrayDouble;

// Returns a new array with indexes 0 to upperBound, whose elements are zero, Nil or empty; the caller owns one reference.
// This function and all functions that grow an array throw std::bad_alloc or std::length_error when memory is exhausted.
Array* newArray(const Type& elementType, std::int32_t upperBound = -1);

bool isArray(const Object* object); // false for null
Array* asArray(Object* object);     // null if it is not an array

const Type& elementType(const Array* array);
std::int32_t upperBound(const Array* array); // -1 if empty

// The following functions require an index in bounds (except `appendElement`); the caller checks it and raises.
inline bool inBounds(const Array* array, HostInteger index) { return index >= 0 && index <= upperBound(array); }
Slot elementAt(const Array* array, HostInteger index);           // borrowed
void setElement(Array* array, HostInteger index, Slot value);    // the array takes its own reference
void insertElement(Array* array, HostInteger index, Slot value); // before index; index may be one past the end
void appendElement(Array* array, Slot value);
void removeElement(Array* array, HostInteger index);

// Moves the element order[i] to index i; `order` contains every index once.
void reorder(Array* array, const std::vector<std::size_t>& order);

// Shortens or extends the array to indexes 0 to upperBound (-1 or more); new elements are zero, Nil or empty.
void resize(Array* array, std::int32_t upperBound);

} // namespace host

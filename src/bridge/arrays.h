// Host arrays, which are created empty and filled at index 0, 1, 2 and so on. The index advances for every element, even if
// the host stores nothing.
#pragma once

#include "chromabridge/host_abi.h"

#include <cstdint>

namespace chroma {

// Stores an element and grows the array. Does nothing for a null array, or if the host has no procedure for that array. An
// object array keeps its own reference to the element.
void REALInsertArrayValueDouble(REALarrayDouble* array, std::int32_t index, double value);
void REALInsertArrayValueObject(void* array, std::int32_t index, REALobjectStruct* value);

// Releases an array that will not be returned; null is allowed.
void REALUnlockArray(void* array);

// Returns the upper bound: -1 for an empty or null array, 0 if the host does not provide it.
std::int32_t REALGetArrayUBound(void* array);

// Returns the element, or 0.0 for a null array. An index outside the array returns 0.0 and raises an
// "OutOfBoundsException".
double REALGetArrayValueDouble(REALarrayDouble* array, std::int32_t index);

} // namespace chroma

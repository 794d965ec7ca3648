// Arrays of the host: filled at index 0, 1, 2 and so on after they were created empty. An index advances for every element,
// also when the host stores nothing.
#pragma once

#include "chromabridge/host_abi.h"

#include <cstdint>

namespace chroma {

// Stores an element, growing the array; does nothing for a null array and where the host serves no such array. An object
// array keeps its own reference to the element.
void REALInsertArrayValueDouble(REALarrayDouble* array, std::int32_t index, double value);
void REALInsertArrayValueObject(void* array, std::int32_t index, REALobjectStruct* value);

// Gives up an array that is not handed out after all; null is allowed.
void REALUnlockArray(void* array);

// The upper bound: -1 for an empty or null array, 0 when the host cannot tell.
std::int32_t REALGetArrayUBound(void* array);

// The element, or 0.0 for a null array. An index outside the array reads 0.0 and raises an "OutOfBoundsException".
double REALGetArrayValueDouble(REALarrayDouble* array, std::int32_t index);

} // namespace chroma

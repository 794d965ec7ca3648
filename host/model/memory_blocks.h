// Memory blocks: objects of the built-in class MemoryBlock. Lock and unlock them as objects.
#pragma once

#include "model/objects.h"

#include <cstdint>
#include <string_view>

struct REALmemoryBlockStruct : REALobjectStruct {};

namespace host {

using MemoryBlock = ::REALmemoryBlockStruct;

// A zero-filled block with one reference for the caller; null for a negative size or when memory is exhausted.
MemoryBlock* newMemoryBlock(std::int32_t size);

unsigned char* bytesOf(MemoryBlock* block); // null for a block of size 0
std::int32_t sizeOf(const MemoryBlock* block);

} // namespace host

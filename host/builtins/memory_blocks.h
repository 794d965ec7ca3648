// Memory blocks: objects of the built-in class MemoryBlock, locked and unlocked as objects.
#pragma once

#include "model/objects.h"

#include <cstdint>
#include <string_view>

struct REALmemoryBlockStruct : REALobjectStruct {};

namespace host {

using MemoryBlock = ::REALmemoryBlockStruct;

// Returns a zero-filled block with one reference for the caller, or null for a negative size and when memory is exhausted.
MemoryBlock* newMemoryBlock(std::int32_t size);

unsigned char* bytesOf(MemoryBlock* block); // null if the size is 0
std::int32_t sizeOf(const MemoryBlock* block);

} // namespace host

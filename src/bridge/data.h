// Conversion between the host's memory blocks and the platform's data objects, always by copying.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/objc.h"

namespace chroma {

// Returns an autoreleased NSData with a copy of the block's bytes, or nil for a null or empty block. Raises no host
// exception itself.
id NewNSData(REALmemoryBlockStruct* block);

// Returns a new memory block with a copy of the data's bytes, which the caller owns. Returns null for nil and for empty
// data, and null with an "OutOfMemoryException" if the host cannot create a block of that size.
REALmemoryBlockStruct* NSDataRB(id data);

} // namespace chroma

// Memory blocks of the host and data objects of the platform, each a copy of the other.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/objc.h"

namespace chroma {

// An autoreleased NSData with a copy of the block's bytes; nil for a null or empty block. Never raises of its own.
id NewNSData(REALmemoryBlockStruct* block);

// A new memory block with a copy of the data's bytes, which the caller owns. Null for nil and for empty data; null and an
// "OutOfMemoryException" when the host makes no block of that size.
REALmemoryBlockStruct* NSDataRB(id data);

} // namespace chroma

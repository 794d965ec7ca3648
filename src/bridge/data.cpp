#include "bridge/data.h"

#include "bridge/errors.h"
#include "platform/guard.h"
#include "platform/selectors.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"
#include "runtime/host_version.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>

namespace chroma {
namespace {

void* blockBytes(REALmemoryBlockStruct* block) {
    return hostHidesStorage() ? REALMemoryBlockGetPtr(block) : storedData(block);
}

std::int32_t blockSize(REALmemoryBlockStruct* block) {
    return hostHidesStorage() ? REALMemoryBlockGetSize(block) : storedSize(block);
}

// Returns a new block with a copy of the bytes, or null if the host creates no block or does not provide its bytes.
REALmemoryBlockStruct* newBlock(const void* bytes, std::int64_t length) {
    if (length >= INT32_MAX) return nullptr;
    REALmemoryBlockStruct* const block = REALNewMemoryBlockOriginal(static_cast<std::int32_t>(length));
    if (!block) return nullptr;
    const auto release = [&] { REALUnlockObject(asObject(block)); };
    void* target = nullptr;
    onThrow([&] { target = blockBytes(block); }, release);
    if (target) {
        std::memcpy(target, bytes, static_cast<std::size_t>(length));
        return block;
    }
    release();
    return nullptr;
}

void raiseNoMemoryBlock(std::int64_t length) {
    char message[200];
    std::snprintf(message, sizeof message, "Failed to allocate a memoryblock with %lld bytes in size.",
                  static_cast<long long>(length));
    RaiseException("OutOfMemoryException", message);
}

template <class Body>
bool exhaustsMemory(Body body) {
    try {
        body();
        return false;
    } catch (const std::bad_alloc&) {
        return true;
    }
}

} // namespace

id NewNSData(REALmemoryBlockStruct* block) {
    if (!block) return nullptr;
    id data = nullptr;
    REALLockObject(asObject(block));
    withCleanup(
        [&] {
            const std::int32_t size = blockSize(block);
            const void* const bytes = blockBytes(block);
            if (bytes && size > 0) data = sel::dataWithBytes_length_(cls::NSData, bytes, static_cast<NSUInteger>(size));
        },
        [&] { REALUnlockObject(asObject(block)); });
    return data;
}

REALmemoryBlockStruct* NSDataRB(id data) {
    const void* const bytes = sel::bytes(data);
    const auto reported = static_cast<std::uint64_t>(sel::length(data));
    // A length of 32 bits is signed. A longer one is too long for a block and is not truncated.
    const std::int64_t length =
        reported <= UINT32_MAX ? static_cast<std::int32_t>(reported) : static_cast<std::int64_t>(reported);
    if (!bytes || length <= 0) return nullptr;
    REALmemoryBlockStruct* block = nullptr;
    const auto make = [&] {
        block = newBlock(bytes, length);
        if (!block) raiseNoMemoryBlock(length);
    };
    if (exhaustsMemory(make)) raiseNoMemoryBlock(length); // also if reporting the failure exhausted it
    return block;
}

} // namespace chroma

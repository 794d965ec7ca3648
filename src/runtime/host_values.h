// The layout of host values: only this file knows offsets into them. The offsets are the same in every width and may be
// unaligned, so every access uses memcpy.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/objc.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace chroma {

template <class T>
T readField(const void* value, std::ptrdiff_t offset) {
    T field;
    std::memcpy(&field, static_cast<const char*>(value) + offset, sizeof field);
    return field;
}

template <class T>
void writeField(void* value, std::ptrdiff_t offset, T field) {
    std::memcpy(static_cast<char*>(value) + offset, &field, sizeof field);
}

// Returns the native object that a plugin object holds, borrowed, or nil for a null or empty object. `offset` is the offset
// of the class's instance data.
inline id nativeObject(const REALobjectStruct* object, std::ptrdiff_t offset = REALinstanceDataOffset) {
    return object ? readField<id>(object, offset) : nullptr;
}

// Overwrites the held pointer. Does not retain or release anything.
inline void setNativeObject(REALobjectStruct* object, id native, std::ptrdiff_t offset = REALinstanceDataOffset) {
    writeField(object, offset, native);
}

// A byte range inside a host value, valid while the value is locked. Null bytes mean that there is no storage.
struct StoredBytes {
    const std::uint8_t* bytes;
    std::int32_t length;
};

// Returns the text of a string, which starts at the second byte of the buffer.
inline StoredBytes storedText(const REALstringStruct* string) {
    const auto* buffer = readField<const std::uint8_t*>(string, REALstringBufferOffset);
    return {buffer ? buffer + 1 : nullptr, readField<std::int32_t>(string, REALstringLengthOffset)};
}

// Return the size and the contents of a memory block on hosts older than 2017.0.
inline std::int32_t storedSize(const REALmemoryBlockStruct* block) {
    return readField<std::int32_t>(block, REALmemoryBlockSizeOffset);
}
inline std::uint8_t* storedData(const REALmemoryBlockStruct* block) {
    return readField<std::uint8_t*>(block, REALmemoryBlockBytesOffset);
}

// Returns the elements of a double array on hosts older than 2017.0, or null if the host must be called for each element.
inline const double* storedElements(const REALarrayDouble* array) {
    return readField<const double*>(array, REALarrayElementsOffset);
}

// Memory blocks, folder items and arrays are also objects.
inline REALobjectStruct* asObject(REALmemoryBlockStruct* block) { return reinterpret_cast<REALobjectStruct*>(block); }
inline REALobjectStruct* asObject(REALfolderItemStruct* item) { return reinterpret_cast<REALobjectStruct*>(item); }
inline REALobjectStruct* arrayAsObject(void* array) { return static_cast<REALobjectStruct*>(array); }

// Converts a platform pointer to the host's integer and back.
inline HostInteger asHandle(const void* pointer) { return reinterpret_cast<HostInteger>(pointer); }
inline const void* fromHandle(HostInteger handle) { return reinterpret_cast<const void*>(handle); }

} // namespace chroma

// Raw storage: only this file reads or writes host values at byte offsets. The values may be unaligned.
#pragma once

#include <cstddef>
#include <cstring>

namespace host {

template <class T>
T readAt(const void* base, std::size_t offset) {
    T value;
    std::memcpy(&value, static_cast<const unsigned char*>(base) + offset, sizeof value);
    return value;
}

template <class T>
void writeAt(void* base, std::size_t offset, T value) {
    std::memcpy(static_cast<unsigned char*>(base) + offset, &value, sizeof value);
}

inline unsigned char* addressAt(void* base, std::size_t offset) { return static_cast<unsigned char*>(base) + offset; }
inline const unsigned char* addressAt(const void* base, std::size_t offset) {
    return static_cast<const unsigned char*>(base) + offset;
}

} // namespace host

// Builds host strings, and returns the platform's text as UTF-8. Raises no host exceptions, because their messages are
// built here: C++ exceptions propagate.
#pragma once

#include "bridge/scratch.h"
#include "chromabridge/host_abi.h"
#include "platform/corefoundation.h"

#include <cstdint>

namespace chroma {

// Returns a new host string from `length` bytes in `encoding`, which the caller owns; UTF-16 and UTF-32 are converted to
// UTF-8. Returns null for null bytes, for a length outside 1 to 2147483647, and if the host does not create the string.
REALstringStruct* buildString(const void* bytes, std::int64_t length, CFStringEncoding encoding);

// The same for NUL-terminated UTF-8.
REALstringStruct* buildString(const char* text);

// The same for UTF-16 in the machine's byte order; `length` is in bytes.
REALstringStruct* REALBuildUnicodeStringUTF16(const void* bytes, std::int64_t length);

// Calls use(text) with the platform string as NUL-terminated UTF-8, valid during the call, or with null for nil and for
// text that UTF-8 cannot represent. Short text needs no allocation.
template <class Use>
void withUTF8(id string, Use use) {
    constexpr CFIndex shortUnits = 99, shortCapacity = 600;
    constexpr CFIndex longestUnits = INT32_MAX / 6;
    const CFIndex units = string ? CFStringGetLength(string) : 0;
    if (units <= 0 || units > longestUnits) return use(nullptr);
    const auto useWritten = [&](char* buffer, CFIndex capacity) {
        use(buffer && CFStringGetCString(string, buffer, capacity, kCFStringEncodingUTF8) ? buffer : nullptr);
    };
    if (units <= shortUnits) {
        char buffer[shortCapacity];
        return useWritten(buffer, shortCapacity);
    }
    const CFIndex capacity = 6 * units; // more than any unit needs
    withHeap<char>(static_cast<std::size_t>(capacity), [&](char* buffer) { useWritten(buffer, capacity); });
}

} // namespace chroma

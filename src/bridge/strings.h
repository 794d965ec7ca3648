// Strings between host and platform, in every encoding the host uses.
#pragma once

#include "bridge/scratch.h"
#include "chromabridge/host_abi.h"
#include "platform/corefoundation.h"

#include <cstdint>

namespace chroma {

// What a host reports for a string of unknown encoding; such text is read as Mac Roman.
constexpr CFStringEncoding kUnknownEncoding = 0xFFFF;

// A new platform string, which the caller releases. Null for the null host string and when the text is invalid in its
// encoding.
CFStringRef RBString2CFString(REALstringStruct* string);

// The same, handed to the autorelease pool; nil for null.
id autoreleasedString(REALstringStruct* string);

// A new UTF-8 host string, which the caller owns. Null, the empty string, for nil, for empty text and on any failure.
REALstringStruct* NSStringRB(id string);

// A new host string from `length` bytes in `encoding`, owned by the caller; text in UTF-16 or UTF-32 ends up as UTF-8. Null
// for null bytes, a length outside 1 to 2147483647, and when the host makes none. A C++ exception becomes a host exception.
REALstringStruct* REALBuildUnicodeString(const void* bytes, std::int64_t length, CFStringEncoding encoding);

// The same, but that a C++ exception goes on.
REALstringStruct* buildString(const void* bytes, std::int64_t length, CFStringEncoding encoding);

// The same for UTF-16 in the machine's byte order; `length` is in bytes.
REALstringStruct* REALBuildUnicodeStringUTF16(const void* bytes, std::int64_t length);

// Calls use(text) with the platform string as NUL-terminated UTF-8, valid during the call, and with null for nil and for a
// string that cannot be written so. Short text needs no allocation.
template <class Use>
void withUTF8(id string, Use use) {
    constexpr CFIndex shortUnits = 99, shortCapacity = 600;
    constexpr CFIndex longestUnits = INT32_MAX / 6;
    const CFIndex units = string ? CFStringGetLength(string) : 0;
    if (units <= 0 || units > longestUnits) return use(nullptr);
    // Room for 600 bytes serves up to 99 units; beyond, a unit never takes more than 6.
    const CFIndex capacity = units <= shortUnits ? shortCapacity : 6 * units;
    withScratch<char, shortCapacity>(static_cast<std::size_t>(capacity), [&](char* buffer) {
        use(buffer && CFStringGetCString(string, buffer, capacity, kCFStringEncodingUTF8) ? buffer : nullptr);
    });
}

} // namespace chroma

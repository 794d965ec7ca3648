// Conversion of strings between host and platform, in every encoding that hosts use.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/corefoundation.h"

#include <cstdint>

namespace chroma {

// Returns a new platform string, which the caller releases, or null for the null host string and for text that is invalid
// in its encoding.
CFStringRef RBString2CFString(REALstringStruct* string);

// The same, but autoreleased; nil for null.
id autoreleasedString(REALstringStruct* string);

// Returns a new UTF-8 host string, which the caller owns. Returns null, the empty string, for nil, for empty text and on
// failure.
REALstringStruct* NSStringRB(id string);

// Builds a string like `buildString`. A C++ exception becomes a host exception, and the result is null.
REALstringStruct* REALBuildUnicodeString(const void* bytes, std::int64_t length, CFStringEncoding encoding);

} // namespace chroma

// The CoreFoundation functions of the builtin platform. Every CoreFoundation reference is an object of the platform's
// runtime: strings are NSStrings, URLs NSURLs, dictionaries and colour handles are objects too, and all take retain and
// release.
//
// Functions with "Create" or "Copy" in their name return a reference that the caller releases, or null when memory is
// exhausted. The allocator is ignored and usually null.
#pragma once

#include <cstdint>

namespace chroma {

struct Object;
using id = Object*;

using CFTypeRef = const void*;
using CFAllocatorRef = const void*;
using CFStringRef = id;
using CFURLRef = id;
using CFMutableDictionaryRef = id;
using CFIndex = std::intptr_t;
using CFURLPathStyle = CFIndex;
using CFStringEncoding = std::uint32_t;
using Boolean = unsigned char;
using UniChar = std::uint16_t;

struct CFRange {
    CFIndex location, length;
};

extern "C" {

// Does nothing for null.
void CFRelease(CFTypeRef object);

// Supports the encodings that chromabridge/host_abi.h names. Returns null if the bytes are invalid in the encoding, the
// encoding is not supported, or the count is negative. With isExternalRepresentation a byte order mark of the encoding is
// honoured and removed.
CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const std::uint8_t* bytes, CFIndex count,
                                    CFStringEncoding encoding, Boolean isExternalRepresentation);

// Accepts any units, including unpaired surrogates.
CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar* units, CFIndex count);

CFIndex CFStringGetLength(CFStringRef string); // in UTF-16 units; 0 for null

// Writes the text and a NUL. Returns false if the encoding does not have one of the characters, the encoding's units are
// not bytes, or text and NUL do not fit the capacity. The buffer then starts with a NUL if it has room for one.
Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex capacity, CFStringEncoding encoding);

// Writes the range's text without a NUL and sets *usedBytes to the number of bytes. Returns the number of UTF-16 units that
// it wrote; stops early at an unpaired surrogate, at a character that the encoding does not have, and where the next
// character does not fit the capacity. The range must lie inside the text, lossByte and isExternalRepresentation must be 0,
// and the buffer must not be null.
CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding, std::uint8_t lossByte,
                         Boolean isExternalRepresentation, std::uint8_t* buffer, CFIndex capacity, CFIndex* usedBytes);

// Keys and values are plain pointers, compared by address and not retained. Returns null unless both callbacks are null.
CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef allocator, CFIndex capacity, const void* keyCallBacks,
                                                 const void* valueCallBacks);
CFIndex CFDictionaryGetCount(CFMutableDictionaryRef dictionary);
const void* CFDictionaryGetValue(CFMutableDictionaryRef dictionary, const void* key); // null if the key is not present
// May raise NSMallocException.
void CFDictionarySetValue(CFMutableDictionaryRef dictionary, const void* key, const void* value);
void CFDictionaryRemoveValue(CFMutableDictionaryRef dictionary, const void* key);

// Calls the function with every key and value in unspecified order. The function must not change the dictionary.
void CFDictionaryApplyFunction(CFMutableDictionaryRef dictionary,
                               void (*function)(const void* key, const void* value, void*), void* context);

// The path style must be 0, POSIX; otherwise these functions return null.
//
// Creates a URL from a path. A relative path starts at the working folder. Returns null if the path is empty or not Unicode
// text.
CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef allocator, CFStringRef path, CFURLPathStyle style,
                                       Boolean isDirectory);

// Creates a URL from its text, which may contain percent escapes. Returns null if the text is empty or contains a character
// that is not allowed in URLs. The base must be null.
CFURLRef CFURLCreateWithString(CFAllocatorRef allocator, CFStringRef text, CFURLRef base);

// Returns the URL's path with decoded escapes and without a trailing slash, or null if the URL has no path or the escapes
// are not UTF-8.
CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle style);
}

} // namespace chroma

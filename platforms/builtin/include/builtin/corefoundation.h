// The CoreFoundation functions of the builtin platform. Every CoreFoundation reference is an object of the platform's
// runtime: strings are NSStrings, URLs NSURLs, dictionaries and colour handles are objects too, and all take retain and
// release.
//
// "Create" and "Copy" give a reference that the caller releases; null when memory is exhausted. An allocator is ignored;
// null is the usual argument.
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

// Null does nothing, and CFRetain answers its argument.
CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);

// Encodings: Mac Roman 0, UTF-16 0x100, Latin-1 0x201, Windows Latin-1 0x500, ASCII 0x600, UTF-8 0x08000100, UTF-32
// 0x0C000100, the wide ones in the machine's byte order. Null when the bytes are invalid in the encoding, the encoding is
// another, or the count is negative. With isExternalRepresentation a byte order mark of the encoding is honoured and left
// out.
CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const std::uint8_t* bytes, CFIndex count,
                                    CFStringEncoding encoding, Boolean isExternalRepresentation);

// Any units, paired or not.
CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar* units, CFIndex count);

CFIndex CFStringGetLength(CFStringRef string); // in UTF-16 units; 0 for null

// Writes the text and a NUL. False when the text cannot be written in the encoding, the encoding's units are not bytes, or
// text and NUL do not fit the capacity; the buffer then starts with a NUL if it has room for one.
Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex capacity, CFStringEncoding encoding);

// Writes the range's text without a NUL and sets *usedBytes to the number of bytes. Returns the number of UTF-16 units that
// it wrote; stops early at an unpaired surrogate, at a character that the encoding does not have, and where the next
// character does not fit the capacity. The range must lie inside the text, lossByte and isExternalRepresentation must be 0,
// and the buffer must not be null.
CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding, std::uint8_t lossByte,
                         Boolean isExternalRepresentation, std::uint8_t* buffer, CFIndex capacity, CFIndex* usedBytes);

// Keys and values are plain pointers, neither retained nor compared by what they point to. Null for callbacks that are not
// null.
CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef allocator, CFIndex capacity, const void* keyCallBacks,
                                                 const void* valueCallBacks);
CFIndex CFDictionaryGetCount(CFMutableDictionaryRef dictionary);
const void* CFDictionaryGetValue(CFMutableDictionaryRef dictionary, const void* key); // null when there is none
// May raise NSMallocException.
void CFDictionarySetValue(CFMutableDictionaryRef dictionary, const void* key, const void* value);
void CFDictionaryRemoveValue(CFMutableDictionaryRef dictionary, const void* key);

// Calls the function with every key and value, in no particular order; it must not change the dictionary.
void CFDictionaryApplyFunction(CFMutableDictionaryRef dictionary,
                               void (*function)(const void* key, const void* value, void*), void* context);

// The path style is 0, POSIX; with another the answer is null.
//
// From a path, which is made absolute against the working folder; null when it is empty or not Unicode text.
CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef allocator, CFStringRef path, CFURLPathStyle style,
                                       Boolean isDirectory);

// From the text of a URL, with percent escapes; null when it is empty or has characters that a URL has not. The base must be
// null.
CFURLRef CFURLCreateWithString(CFAllocatorRef allocator, CFStringRef text, CFURLRef base);

// The URL's path, escapes decoded, without a slash at its end; null when it has none or the escapes are no UTF-8.
CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle style);
}

} // namespace chroma

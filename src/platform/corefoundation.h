// The CoreFoundation functions and types in use. CoreFoundation strings, data and dictionaries are objects of the platform's
// runtime too ("toll-free"), so a CFStringRef may be sent messages as an NSString.
#pragma once

#include "platform/objc.h"

#include <cstdint>

namespace chroma {

using CFTypeRef = const void*;
using CFAllocatorRef = const void*; // null: the default allocator
using CFStringRef = id;
using CFMutableDictionaryRef = id;
using CFIndex = std::intptr_t;
using CFStringEncoding = std::uint32_t;
using CFURLRef = id;
using CFURLPathStyle = CFIndex;
using Boolean = unsigned char;
using UniChar = std::uint16_t;

constexpr CFStringEncoding kCFStringEncodingMacRoman = 0x00000000;
constexpr CFStringEncoding kCFStringEncodingUnicode = 0x00000100; // UTF-16 in the machine's byte order
constexpr CFStringEncoding kCFStringEncodingISOLatin1 = 0x00000201;
constexpr CFStringEncoding kCFStringEncodingWindowsLatin1 = 0x00000500;
constexpr CFStringEncoding kCFStringEncodingASCII = 0x00000600;
constexpr CFStringEncoding kCFStringEncodingUTF8 = 0x08000100;
constexpr CFStringEncoding kCFStringEncodingUTF32 = 0x0C000100; // UTF-32 in the machine's byte order

constexpr CFURLPathStyle kCFURLPOSIXPathStyle = 0;

extern "C" {
// New strings, which the caller releases; null when the bytes are invalid in the encoding or the encoding is unknown. With
// isExternalRepresentation a byte order mark is honoured and left out.
CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const std::uint8_t* bytes, CFIndex count, CFStringEncoding encoding,
                                    Boolean isExternalRepresentation);
CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* units, CFIndex count);

// The length in UTF-16 units.
CFIndex CFStringGetLength(CFStringRef string);

// Writes the text and a terminating NUL; false when it cannot be written in the encoding or does not fit the capacity.
Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex capacity, CFStringEncoding encoding);

void CFRelease(CFTypeRef object);

// Keys and values go as plain pointers; what is done with them is the choice of the dictionary's owner.
const void* CFDictionaryGetValue(CFMutableDictionaryRef dictionary, const void* key);
void CFDictionarySetValue(CFMutableDictionaryRef dictionary, const void* key, const void* value);
void CFDictionaryRemoveValue(CFMutableDictionaryRef dictionary, const void* key);

// Calls the function with every key and value; it must not change the dictionary.
void CFDictionaryApplyFunction(CFMutableDictionaryRef dictionary,
                               void (*function)(const void* key, const void* value, void*), void* context);

// New URLs, which the caller releases; null when the text is no path or no URL. A relative path starts at the working
// folder.
CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef path, CFURLPathStyle, Boolean isDirectory);
CFURLRef CFURLCreateWithString(CFAllocatorRef, CFStringRef text, CFURLRef base);

// The path that a URL names, percent escapes decoded; a new string, which the caller releases.
CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle);

// An NSString constant of AppKit: the name of the calibrated RGB colour space.
extern const id NSCalibratedRGBColorSpace;
}

} // namespace chroma

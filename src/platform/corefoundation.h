// The CoreFoundation functions and types that the plugin uses. CoreFoundation strings, data and dictionaries are also
// objects of the platform's runtime ("toll-free bridged"), so a CFStringRef may receive an NSString's messages.
#pragma once

#include "chromabridge/host_abi.h"
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

// The encodings of host strings are CoreFoundation's.
constexpr CFStringEncoding kCFStringEncodingMacRoman = REALencodingMacRoman;
constexpr CFStringEncoding kCFStringEncodingUnicode = REALencodingUTF16;
constexpr CFStringEncoding kCFStringEncodingISOLatin1 = REALencodingLatin1;
constexpr CFStringEncoding kCFStringEncodingWindowsLatin1 = REALencodingWindowsLatin1;
constexpr CFStringEncoding kCFStringEncodingASCII = REALencodingASCII;
constexpr CFStringEncoding kCFStringEncodingUTF8 = REALencodingUTF8;
constexpr CFStringEncoding kCFStringEncodingUTF32 = REALencodingUTF32;

constexpr CFURLPathStyle kCFURLPOSIXPathStyle = 0;

extern "C" {
// Return new strings, which the caller releases, or null if the bytes are invalid in the encoding or the encoding is
// unknown. With isExternalRepresentation the function honours and removes a byte order mark.
CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const std::uint8_t* bytes, CFIndex count, CFStringEncoding encoding,
                                    Boolean isExternalRepresentation);
CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* units, CFIndex count);

// Returns the length in UTF-16 units.
CFIndex CFStringGetLength(CFStringRef string);

// Writes the text and a terminating NUL. Returns false if the encoding does not have one of the characters or the text does
// not fit the capacity.
Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex capacity, CFStringEncoding encoding);

void CFRelease(CFTypeRef object);

// Keys and values are plain pointers; the dictionary's owner chooses how they are compared and retained.
const void* CFDictionaryGetValue(CFMutableDictionaryRef dictionary, const void* key);
void CFDictionarySetValue(CFMutableDictionaryRef dictionary, const void* key, const void* value);
void CFDictionaryRemoveValue(CFMutableDictionaryRef dictionary, const void* key);

// Calls the function with every key and value. The function must not change the dictionary.
void CFDictionaryApplyFunction(CFMutableDictionaryRef dictionary,
                               void (*function)(const void* key, const void* value, void*), void* context);

// Return new URLs, which the caller releases, or null if the text is not a path or not a URL. A relative path starts at the
// working folder.
CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef path, CFURLPathStyle, Boolean isDirectory);
CFURLRef CFURLCreateWithString(CFAllocatorRef, CFStringRef text, CFURLRef base);

// Returns the URL's path with decoded percent escapes as a new string, which the caller releases.
CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle);

// AppKit's NSString constant, the name of the calibrated RGB colour space.
extern const id NSCalibratedRGBColorSpace;
}

} // namespace chroma

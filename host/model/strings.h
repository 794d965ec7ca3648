// Host strings: immutable bytes with a recorded encoding and an exact reference count. A null string is the empty string,
// and no string of length 0 is ever made.
#pragma once

#include "model/values.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

using Encoding = std::uint32_t; // a CFStringEncoding value

namespace encoding {
constexpr Encoding macRoman = 0x00000000;
constexpr Encoding utf16 = 0x00000100; // in the machine's byte order
constexpr Encoding isoLatin1 = 0x00000201;
constexpr Encoding windowsLatin1 = 0x00000500;
constexpr Encoding ascii = 0x00000600;
constexpr Encoding utf8 = 0x08000100;
constexpr Encoding utf32 = 0x0C000100; // in the machine's byte order
constexpr Encoding unknown = 0x0000FFFF;
} // namespace encoding

// A new string with one reference for the caller; null for no bytes or when memory is exhausted. The bytes are copied.
String* newString(std::string_view bytes, Encoding encoding = encoding::utf8);

// One reference more, one fewer. Null is allowed.
void lock(String* string);
void unlock(String* string);

// The stored bytes, valid while the string lives; empty for null.
std::string_view bytesOf(const String* string);

// encoding::unknown for null.
Encoding encodingOf(const String* string);
void setEncoding(String* string, Encoding encoding); // converts nothing; null is ignored

// A new string with the same text, one reference for the caller; null for null, and when the text cannot be written in the
// encoding. Text of unknown encoding is read as Mac Roman.
String* convert(const String* string, Encoding encoding);

// The text in UTF-8; bytes that are invalid in the recorded encoding give the empty string.
std::string utf8Of(const String* string);

// A new string with one reference for the caller: the bytes joined when the encodings agree, else the texts in UTF-8.
String* concatenate(const String* a, const String* b);

// Less than, equal to or greater than 0, by code points; `ignoringCase` folds the letters A to Z.
int compare(const String* a, const String* b, bool ignoringCase);

// Strings alive in this process.
std::size_t liveStringCount();

} // namespace host

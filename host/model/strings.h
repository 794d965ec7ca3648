// Host strings: immutable bytes with a recorded encoding and an exact reference count. A null string is the empty string,
// and no string of length 0 is ever made.
#pragma once

#include "model/values.h"

#include <cstddef>
#include <cstdint>
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

// From here on no string ends, as with keepAllObjects.
void keepAllStrings();

// The stored bytes, valid while the string lives; empty for null.
std::string_view bytesOf(const String* string);

// A string's text in UTF-8, addressed by characters. Where it is stored so, nothing is copied, and the string remembers
// where the last character was found: to walk through a text takes time in proportion to its length. The string must outlive
// it.
class TextOf {
public:
    explicit TextOf(const String* string);
    TextOf(const TextOf&) = delete;
    TextOf& operator=(const TextOf&) = delete;

    std::string_view bytes() const { return bytes_; }
    std::size_t length() const; // in characters

    // The byte at which a character starts, counted from 0; the end for those that are not there. And back, at such a byte.
    std::size_t offsetOf(std::size_t character) const;
    std::size_t characterAt(std::size_t offset) const;

private:
    const String* string_; // null: `copy_` is the text, or it is empty
    std::string copy_;
    std::string_view bytes_;
};

// encoding::unknown for null.
Encoding encodingOf(const String* string);
void setEncoding(String* string, Encoding encoding); // converts nothing; null is ignored

// A new string with the same text, one reference for the caller; null for null, and when the text cannot be written in the
// encoding. Text of unknown encoding is read as Mac Roman.
String* convert(const String* string, Encoding encoding);

// The text in UTF-8; bytes that are invalid in the recorded encoding give the empty string.
std::string utf8Of(const String* string);

// A new string with one reference for the caller: the bytes joined when the encodings agree, else the texts in UTF-8. Null
// also when memory is exhausted.
String* concatenate(const String* a, const String* b);

// The same with the caller's reference to `a` used up. When it is the only one, there is room left behind the text, so that
// appending again and again takes time in proportion to what is appended. Throws std::bad_alloc, and then `a` is as before.
String* append(String* a, const String* b);

// Less than, equal to or greater than 0, by code points; `ignoringCase` folds the letters A to Z.
int compare(const String* a, const String* b, bool ignoringCase);

// Strings alive in this process.
std::size_t liveStringCount();

} // namespace host

// Host strings: immutable bytes with a recorded encoding and an exact reference count. A null string is the empty string;
// strings of length 0 are never created.
#pragma once

#include "values/values.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace host {

using Encoding = std::uint32_t; // a CFStringEncoding value

namespace encoding {
constexpr Encoding macRoman = REALencodingMacRoman;
constexpr Encoding utf16 = REALencodingUTF16;
constexpr Encoding isoLatin1 = REALencodingLatin1;
constexpr Encoding windowsLatin1 = REALencodingWindowsLatin1;
constexpr Encoding ascii = REALencodingASCII;
constexpr Encoding utf8 = REALencodingUTF8;
constexpr Encoding utf32 = REALencodingUTF32;
constexpr Encoding unknown = REALencodingUnknown;
} // namespace encoding

// The maximum number of bytes of a text that a program creates.
constexpr std::size_t maxTextBytes = std::size_t{1} << 28;

// Returns a new string with a copy of the bytes and one reference for the caller, or null for no bytes and when memory is
// exhausted.
String* newString(std::string_view bytes, Encoding encoding = encoding::utf8);

// Add and remove one reference. Null is allowed.
void lock(String* string);
void unlock(String* string);

// Returns the number of references to a string that is not null.
std::int32_t referencesOf(const String* string);

// Prevents the destruction of all strings from now on; see keepAllObjects.
void keepAllStrings();

// Returns the stored bytes, valid while the string lives; empty for null.
std::string_view bytesOf(const String* string);

struct Walk;

// A string's text in UTF-8, addressed by characters. Text stored as UTF-8 is not copied. The string remembers where it
// found the last character, so walking through a text takes time proportional to its length. The string must outlive this
// object.
class TextOf {
public:
    explicit TextOf(const String* string);
    TextOf(const TextOf&) = delete;
    TextOf& operator=(const TextOf&) = delete;

    std::string_view bytes() const { return bytes_; }
    std::size_t length() const; // in characters

    // Return the byte offset of a character, counted from 0 (the end if there is no such character), and the character at a
    // byte offset where one starts.
    std::size_t offsetOf(std::size_t character) const;
    std::size_t characterAt(std::size_t offset) const;

private:
    Walk& walk() const; // of a string that is not ASCII

    const String* string_; // if null, `copy_` is the text, or the text is empty
    std::string copy_;
    std::string_view bytes_;
};

// Returns the recorded encoding; encoding::unknown for null.
Encoding encodingOf(const String* string);
void setEncoding(String* string, Encoding encoding); // does not convert the text; ignores null

// Returns a new string with the same text and one reference for the caller. Returns null for null and if the encoding does
// not have one of the characters. Text of unknown encoding is read as Mac Roman.
String* convert(const String* string, Encoding encoding);

// Returns the text in UTF-8; the empty string if the bytes are invalid in the recorded encoding.
std::string utf8Of(const String* string);

// Returns a new string with one reference for the caller: the joined bytes if the encodings are equal, otherwise the joined
// texts in UTF-8. Returns null also when memory is exhausted.
String* concatenate(const String* a, const String* b);

// Each of these uses up the caller's reference to `a`. If it is the only reference, the string changes in place and
// reserves room before or after its text. So repeating one of them takes time proportional to the bytes added or removed.
// Throws std::bad_alloc, which leaves `a` unchanged.
String* append(String* a, const String* b);
String* prepend(String* a, const String* b); // `b` comes first
// keeps up to `count` characters from `first` on, counted from 0
String* slice(String* a, std::size_t first, std::size_t count);

// Compares by code points and returns a negative number, 0 or a positive number. `ignoringCase` folds the letters A to Z.
int compare(const String* a, const String* b, bool ignoringCase);

// Returns the number of living strings.
std::size_t liveStringCount();

} // namespace host

// Conversion between bytes and UTF-16. Invalid input and missing characters are errors, never replaced.
#pragma once

#include "chromabridge/host_abi.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace chroma {

// The known encodings, which the contract between host and plugin takes from CoreFoundation.
namespace encoding {

constexpr std::uint32_t macRoman = REALencodingMacRoman;
constexpr std::uint32_t utf16 = REALencodingUTF16;
constexpr std::uint32_t latin1 = REALencodingLatin1;
constexpr std::uint32_t windowsLatin1 = REALencodingWindowsLatin1;
constexpr std::uint32_t ascii = REALencodingASCII;
constexpr std::uint32_t utf8 = REALencodingUTF8;
constexpr std::uint32_t utf32 = REALencodingUTF32;

} // namespace encoding

// Returns whether ASCII text has the same bytes in the encoding; false for an unknown one.
bool extendsAscii(std::uint32_t encoding);

bool isAscii(std::string_view bytes);
bool isAscii(std::u16string_view text);

// Appends the text. Returns false if the bytes are invalid in the encoding or the encoding is unknown. With `honoursMark` a
// byte order mark sets the order of UTF-16 and UTF-32; it is removed, also from UTF-8.
bool decodeText(std::string_view bytes, std::uint32_t encoding, bool honoursMark, std::u16string& text);

// How much encodeText wrote.
struct Encoded {
    std::size_t units; // of the text
    std::size_t bytes; // in the buffer
};

// Writes the text without a NUL. Stops early at an unpaired surrogate, at a character that the encoding does not have, and
// where the next character does not fit the capacity. Writes nothing in an unknown encoding.
Encoded encodeText(std::u16string_view text, std::uint32_t encoding, char* buffer, std::size_t capacity);

// Writes the text and a NUL. Returns false when encodeText stops early, the NUL does not fit, or the encoding's units are
// not bytes; the buffer then holds a part of the text.
bool encodeCString(std::u16string_view text, std::uint32_t encoding, char* buffer, std::size_t capacity);

} // namespace chroma

// Conversion between bytes and UTF-16. Invalid input and missing characters are errors, never replaced.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace chroma {

// The known encodings by their CoreFoundation numbers.
namespace encoding {

constexpr std::uint32_t macRoman = 0;
constexpr std::uint32_t utf16 = 0x100; // in the machine's byte order, like utf32
constexpr std::uint32_t latin1 = 0x201;
constexpr std::uint32_t windowsLatin1 = 0x500;
constexpr std::uint32_t ascii = 0x600;
constexpr std::uint32_t utf8 = 0x08000100;
constexpr std::uint32_t utf32 = 0x0C000100;

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

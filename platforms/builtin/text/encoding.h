// Bytes to UTF-16 and back, strictly: what is invalid or cannot be written is refused, never replaced.
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

// Whether ASCII text is the same bytes in the encoding. False for an unknown one.
bool extendsAscii(std::uint32_t encoding);

bool isAscii(std::string_view bytes);
bool isAscii(std::u16string_view text);

// Appends the text. False for bytes that are invalid in the encoding and for an unknown encoding. With `honoursMark` a byte
// order mark decides the order of UTF-16 and UTF-32 and is left out, of UTF-8 too.
bool decodeText(std::string_view bytes, std::uint32_t encoding, bool honoursMark, std::u16string& text);

// Writes the text and a NUL. False when a surrogate is unpaired, a character is not in the encoding, the encoding's units
// are not bytes, or the capacity does not suffice; the buffer then holds a part of the text.
bool encodeText(std::u16string_view text, std::uint32_t encoding, char* buffer, std::size_t capacity);

} // namespace chroma

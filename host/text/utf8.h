// UTF-8: counting, cutting and checking. Positions and lengths of the language are in characters, that is, code points.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace host::utf8 {

inline bool startsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

// The number of characters.
std::size_t length(std::string_view text);

// The last character boundary at or before byte `offset`.
std::size_t floor(std::string_view text, std::size_t offset);

// The byte offset at which character number `index` (from 0) starts; the text's size when there is none.
std::size_t offsetOf(std::string_view text, std::size_t index);

// The offset of the first byte that is no part of well-formed UTF-8, or npos.
std::size_t findInvalid(std::string_view text);

// The character of a code point.
std::string encoded(std::uint32_t code);

// The code point of the first character; nothing without one, or when it is malformed.
std::optional<std::uint32_t> firstOf(std::string_view text);

// How many columns of a terminal a character takes: 2 of a wide one, 0 of one that joins the character before it; none when
// it is a control character or not known.
std::optional<std::size_t> columnsOf(std::uint32_t code);

// Applies a mapping of code points, such as towupper. Malformed bytes stay as they are.
std::string map(std::string_view text, std::uint32_t (*mapping)(std::uint32_t));

} // namespace host::utf8

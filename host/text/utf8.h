// UTF-8: counting, cutting and checking. The language counts positions and lengths in characters, that is, code points.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace host::utf8 {

inline bool startsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

// Returns the number of characters.
std::size_t length(std::string_view text);

// Returns the last character boundary at or before byte `offset`.
std::size_t floor(std::string_view text, std::size_t offset);

// Returns the byte offset of character number `index` (from 0); the text's size if there is no such character.
std::size_t offsetOf(std::string_view text, std::size_t index);

// Returns the offset of the first byte that is not part of well-formed UTF-8, or npos.
std::size_t findInvalid(std::string_view text);

// Returns the UTF-8 bytes of a code point.
std::string encoded(std::uint32_t code);

// Returns the code point of the first character; nullopt if the text is empty or the character is malformed.
std::optional<std::uint32_t> firstOf(std::string_view text);

// Returns the number of terminal columns of a character: 2 for a wide character, 0 for one that joins the previous one;
// nullopt for control characters and unknown ones.
std::optional<std::size_t> columnsOf(std::uint32_t code);

// Applies a mapping of code points, such as towupper. Malformed bytes stay as they are.
std::string map(std::string_view text, std::uint32_t (*mapping)(std::uint32_t));

} // namespace host::utf8

// Spellings from other languages, and how this language writes the same.
#pragma once

#include <cstdint>
#include <string_view>

namespace host::language {

// Where the spelling was found: a name, the name of a call with arguments, a member of an array or of a plain value such as
// text, or the type of an indexed value.
enum class Foreign : std::uint8_t { name, call, arrayMember, plainMember, indexedType };

// Returns a hint such as "whole numbers are 'Integer'"; empty for most spellings. Hints for a name also apply to calls.
std::string_view hintFor(Foreign where, std::string_view spelling);

// The sign of another language with which the text begins. The text is a program from some place to its end.
struct ForeignSign {
    std::string_view sign; // empty: none
    std::string_view hint;
};
ForeignSign foreignSignAt(std::string_view text);

} // namespace host::language

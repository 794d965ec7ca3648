// What people write who come from other languages, and how this one says it.
#pragma once

#include <cstdint>
#include <string_view>

namespace host::language {

// Where the spelling was met: as a name, as the name of a call with arguments, as a member of an array or of a plain value
// such as text, or as the type of what is indexed.
enum class Foreign : std::uint8_t { name, call, arrayMember, plainMember, indexedType };

// Returns a hint such as "whole numbers are 'Integer'"; empty for most spellings. Those of a name count for calls too.
std::string_view hintFor(Foreign where, std::string_view spelling);

// The sign of another language that the text, a program from some place to its end, begins with.
struct ForeignSign {
    std::string_view sign; // empty: none
    std::string_view hint;
};
ForeignSign foreignSignAt(std::string_view text);

} // namespace host::language

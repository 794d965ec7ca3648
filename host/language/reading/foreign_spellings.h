// What people write who come from other languages, and how this one says it.
#pragma once

#include <string_view>

namespace host::language {

// A hint such as "whole numbers are 'Integer'" for a name that means nothing here; empty for most names.
std::string_view hintForName(std::string_view name);

// The sign of another language that the text, a program from some place to its end, begins with.
struct ForeignSign {
    std::string_view sign; // empty: none
    std::string_view hint;
};
ForeignSign foreignSignAt(std::string_view text);

} // namespace host::language

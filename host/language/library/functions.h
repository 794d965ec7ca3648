// Properties of the language's functions that the checker needs in addition to their declarations. The functions are bound
// functions, like those of a plugin, and are resolved and called in the same way.
#pragma once

#include "language/words.h"

#include <cstdint>
#include <string_view>

namespace host::language {

// What a function does in addition to computing its result from its arguments:
// - returnsWhole: the result is a whole number.
// - keepsWhole: the result is a whole number if the arguments are.
// - acts: the function acts on the process or depends on it, so a call of it is never a constant.
enum class Nature : std::uint8_t { computes, returnsWhole, keepsWhole, acts };
Nature functionNature(std::string_view name);

} // namespace host::language

// What the checker knows of the functions of the language beside their declarations. They are bound functions, like those of
// a plugin, and are resolved and called in the same way.
#pragma once

#include "language/words.h"

#include <cstdint>
#include <string_view>

namespace host::language {

// What a function does beside computing its result from its arguments alone: the result is a whole number, it is one of
// whole arguments, or the function acts on the process or depends on it, so that no constant is made of it.
enum class Nature : std::uint8_t { computes, givesWhole, keepsWhole, acts };
Nature functionNature(std::string_view name);

} // namespace host::language

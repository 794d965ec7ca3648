// The functions of the language itself: Str, Len, Round and so on. They are bound functions with declarations, like those of
// a plugin, and are resolved and called in the same way.
#pragma once

#include "model/classes.h"

#include <cstdint>
#include <string_view>

namespace host::language {

// By name without regard to case; empty when there is none.
OverloadSet findFunctions(std::string_view name);

// What a function does beside computing its result from its arguments alone: the result is a whole number, it is one of
// whole arguments, or the function acts on the process or depends on it, so that no constant is made of it.
enum class Nature : std::uint8_t { computes, givesWhole, keepsWhole, acts };
Nature functionNature(std::string_view name);

// What the functions of the name are for; empty when there is none.
std::string_view functionText(std::string_view name);

// All of them, overloads one by one.
const std::vector<Method>& functions();

} // namespace host::language

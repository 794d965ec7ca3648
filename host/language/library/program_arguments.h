// The arguments with which a program is started.
#pragma once

#include "model/arrays.h"

#include <string>
#include <vector>

namespace host::language {

// Returns the arguments in UTF-8, which a caller may set; empty at first.
std::vector<std::string>& storedArguments();

// The function Arguments: a bound function; the caller owns the result.
Array* programArguments();

} // namespace host::language

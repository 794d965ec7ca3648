// What a program is given when it is started.
#pragma once

#include "model/arrays.h"

#include <string>
#include <vector>

namespace host::language {

// In UTF-8; none until somebody sets them.
std::vector<std::string>& givenArguments();

// The function Arguments: a bound function, whose result belongs to the caller.
Array* programArguments();

} // namespace host::language

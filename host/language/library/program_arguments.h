// What a program is given when it is started.
#pragma once

#include "model/arrays.h"

#include <string>
#include <vector>

namespace host::language {

void setProgramArguments(std::vector<std::string> arguments); // UTF-8; none before

// The function Arguments: a bound function, whose result belongs to the caller.
Array* programArguments();

} // namespace host::language

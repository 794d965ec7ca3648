// What a library exports.
#pragma once

#include <string>
#include <vector>

namespace host::validator {

// The names of the functions that a library file offers to others. Throws std::runtime_error for a file that is none of this
// machine's width.
std::vector<std::string> exportedFunctions(const std::string& file);

} // namespace host::validator

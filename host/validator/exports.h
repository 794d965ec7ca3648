// Lists the functions that a library exports.
#pragma once

#include <string>
#include <vector>

namespace host::validator {

// Returns the names of the functions that a library file exports. Throws std::runtime_error if the file is not a library of
// this machine's width.
std::vector<std::string> exportedFunctions(const std::string& file);

} // namespace host::validator

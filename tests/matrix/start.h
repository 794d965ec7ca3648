// A process that plays a host: working folder, host, plugin, sibling.
#pragma once

#include "functions.h"

namespace matrix {

// Starts everything, calls each function once so that what is made once is made, and answers the functions.
std::vector<Function> start(double version, const std::vector<std::string>& missing, bool withSibling);

} // namespace matrix

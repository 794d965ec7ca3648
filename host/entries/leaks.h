// Objects that a finished program left behind.
#pragma once

#include <string>

namespace host {

// Returns the host objects and strings that are still alive, as in "2 x NSColorZRX, 1 x String"; empty if there are none.
std::string describeLeaks();

} // namespace host

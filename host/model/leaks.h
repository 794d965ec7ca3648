// What is left of a program that has ended.
#pragma once

#include <string>

namespace host {

// "2 x NSColorZRX, 1 x String": the host objects and strings still alive; empty when there are none.
std::string describeLeaks();

} // namespace host

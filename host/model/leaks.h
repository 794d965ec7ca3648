// What is left of a program that has ended.
#pragma once

#include <string>

namespace host {

// "3 objects (2 NSColorZRX, 1 other), 1 string": the host objects and strings still alive; empty when there are none.
std::string describeLeaks();

} // namespace host

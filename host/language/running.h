// Runs checked code and says how it ended.
#pragma once

#include "language/code.h"
#include "language/frame.h"
#include "language/source.h"

#include <string>

namespace host::language {

// The report of the exception that nobody caught, or of the interruption; empty when the code ran to its end. SIGINT
// interrupts the code while it runs.
std::string runCode(const Source& source, const Action& code, Execution& execution);

} // namespace host::language

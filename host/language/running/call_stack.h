// The calls that led to an exception, in readable form.
#pragma once

#include "language/running/frame.h"

#include <string>

namespace host::language {

// Returns a line "called from FILE:LINE:COLUMN in Procedure" for each of the calls around the place where the exception was
// raised, the innermost first. Repeated calls are folded into one line, and of many calls only the first and the last are
// shown. At a prompt, the typed line follows a place outside of procedures.
std::string callsAround(const Raised& raised, const Execution& execution);

// Returns the same after a line with the place where the exception was raised.
std::string stackOf(const Raised& raised, const Execution& execution);

} // namespace host::language

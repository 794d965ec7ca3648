// Which calls led to an exception, as people read it.
#pragma once

#include "language/running/frame.h"

#include <string>

namespace host::language {

// Returns a line "called from FILE:LINE:COLUMN in Procedure" for each of the calls around the place where the exception was
// raised, the innermost first. Calls that repeat are folded into one line, and of many only the first and the last are
// shown. At a prompt the typed line stands behind a place outside of procedures.
std::string callsAround(const Raised& raised, const Execution& execution);

// Returns the same behind a line with the place where the exception was raised.
std::string stackOf(const Raised& raised, const Execution& execution);

} // namespace host::language

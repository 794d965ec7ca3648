// Which calls led to an exception, as people read it.
#pragma once

#include "language/running/frame.h"

#include <string>

namespace host::language {

// A line "called from FILE:LINE:COLUMN in Procedure" for each of the calls around the place where the exception was raised,
// the innermost first, up to ten. At a prompt the typed line stands behind a place outside of procedures.
std::string callsAround(const Raised& raised, const Execution& execution);

// The same behind a line that says where the exception was raised.
std::string stackOf(const Raised& raised, const Execution& execution);

} // namespace host::language

// Determines whether control can reach the end of a procedure.
#pragma once

#include "language/reading/syntax.h"

#include <vector>

namespace host::language {

// Returns whether control can reach the end of the block, or an Exit that leaves the procedure. A condition that is not a
// literal can be true and false.
bool reachesEnd(const syntax::Block& procedure);

} // namespace host::language

// Where control goes: whether it can reach the end of a procedure.
#pragma once

#include "language/reading/syntax.h"

#include <vector>

namespace host::language {

// Whether control can come to the end of the block, or to an Exit that leaves the procedure. Conditions can be true and
// false unless they are literals.
bool reachesEnd(const syntax::Block& procedure);

} // namespace host::language

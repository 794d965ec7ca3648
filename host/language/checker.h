// Checks a whole program and turns it into code.
#pragma once

#include "language/code.h"
#include "language/diagnostics.h"
#include "language/syntax.h"

#include <optional>

namespace host::language {

// None when there are errors, which the diagnostics then hold. The classes in use must outlive the program.
std::optional<Program> check(const syntax::Block& block, Diagnostics& diagnostics);

} // namespace host::language

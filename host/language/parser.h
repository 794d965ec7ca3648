// Builds the syntax tree of a program.
#pragma once

#include "language/diagnostics.h"
#include "language/syntax.h"

#include <optional>

namespace host::language {

// None when the program cannot be read; the diagnostics then hold the first error. The source must outlive the tree.
std::optional<syntax::Block> parse(const Source& source, Diagnostics& diagnostics);

} // namespace host::language

// Builds the syntax tree of a program.
#pragma once

#include "language/reading/diagnostics.h"
#include "language/reading/syntax.h"

#include <cstdint>

namespace host::language {

enum class ParseMode : std::uint8_t {
    program,
    prompt // an expression is a statement that shows its value
};

// Parses the source from `start` on. Adds errors to the diagnostics and continues after an invalid statement, which a
// Broken replaces in the tree. The source must outlive the tree.
syntax::Block parse(const Source& source, Diagnostics& diagnostics, ParseMode mode = ParseMode::program, Offset start = 0);

// Returns whether the source from `start` on ends inside a block or a continued line, so that more lines belong to it.
bool needsMore(const Source& source, Offset start);

} // namespace host::language

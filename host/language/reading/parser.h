// Builds the syntax tree of a program.
#pragma once

#include "language/reading/diagnostics.h"
#include "language/reading/syntax.h"

#include <cstdint>

namespace host::language {

enum class ParseMode : std::uint8_t {
    program,
    prompt // an expression alone is a statement that shows its value
};

// Reads the source from `start` on. What is wrong goes to the diagnostics; reading goes on behind a wrong statement, whose
// place in the tree a Broken takes. The source must outlive the tree.
syntax::Block parse(const Source& source, Diagnostics& diagnostics, ParseMode mode = ParseMode::program, Offset start = 0);

// Whether the source from `start` on ends inside a block or a continued line, so that more lines belong to it.
bool needsMore(const Source& source, Offset start);

} // namespace host::language

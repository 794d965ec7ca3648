// The interactive prompt of the language.
#pragma once

#include "repl/line_reader.h"
#include "repl/swatch.h"

#include <iosfwd>

namespace host::repl {

// Reads statements, expressions and commands from stdin until its end or :quit. Errors go to stderr and end nothing. The
// exit code: 1 when something failed and nobody at a terminal has seen it, else 0.
int runPrompt();

// The same with lines from elsewhere: whether nothing failed.
bool runPrompt(LineReader& reader, std::ostream& output, std::ostream& errors, ColorDepth depth);

} // namespace host::repl

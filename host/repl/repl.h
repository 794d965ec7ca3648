// The interactive prompt of the language.
#pragma once

#include "repl/line_reader.h"
#include "repl/swatch.h"

#include <iosfwd>

namespace host::repl {

// Reads statements, expressions and commands from stdin until its end, :quit or Quit. Errors go to stderr, and the prompt
// continues. Returns the exit code: the one of Quit, otherwise 1 if something failed and stdin is not a terminal, otherwise
// 0.
int runPrompt();

// Runs the prompt with the lines of a reader. Returns whether nothing failed.
bool runPrompt(LineReader& reader, std::ostream& output, std::ostream& errors, ColorDepth depth);

} // namespace host::repl

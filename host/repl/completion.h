// Determines what the tab key does at the cursor.
#pragma once

#include "language/session.h"
#include "repl/line_reader.h"

#include <string_view>

namespace host::repl {

// Returns the assistance for the text before the cursor:
// - at the start of a line: indentation;
// - in a command: names of commands and their arguments;
// - after an open parenthesis: a note with the possible arguments, and all names;
// - after a dot: the members of the expression before it;
// - elsewhere: all names that need no dot before them;
// - in string literals and comments: nothing.
// Names begin like the last word, in any case, and are in alphabetical order.
Assistance assist(language::Session& session, std::string_view text);

} // namespace host::repl

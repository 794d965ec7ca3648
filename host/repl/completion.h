// What the tab key means where the cursor is.
#pragma once

#include "language/session.h"
#include "repl/line_reader.h"

#include <string_view>

namespace host::repl {

// For the text in front of the cursor. At a line's start it is indented; a command is completed, and what it is about;
// behind an open parenthesis the note tells what may follow; else come the names that begin as the last word does, in any
// case and in alphabetical order: behind a dot the members of what stands before it, elsewhere all that have no dot in
// front. Nothing in text and in comments.
Assistance assist(language::Session& session, std::string_view text);

} // namespace host::repl

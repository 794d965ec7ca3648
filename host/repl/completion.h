// Which names can stand where the cursor is.
#pragma once

#include "language/session.h"

#include <string>
#include <string_view>
#include <vector>

namespace host::repl {

// The names that begin as the last word of the line does, in any case and in alphabetical order: behind a dot the members of
// what stands before it, elsewhere variables, procedures, classes, functions and keywords.
std::vector<std::string> completions(language::Session& session, std::string_view line);

} // namespace host::repl

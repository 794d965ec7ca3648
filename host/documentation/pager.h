// Shows long texts on a terminal.
#pragma once

#include <cstddef>
#include <string>

namespace host::documentation {

// Returns the number of characters in a line of stdout's terminal, or the usual width if stdout is not a terminal.
std::size_t outputWidth();

// Writes the text to stdout. If stdout is a terminal with fewer lines, the text goes through $PAGER, by default less or
// more.
void showPaged(const std::string& text);

} // namespace host::documentation

// Long texts on a terminal.
#pragma once

#include <cstddef>
#include <string>

namespace host::documentation {

// How many characters a line of stdout's terminal holds; without a terminal a usual number.
std::size_t outputWidth();

// Writes the text to stdout: through $PAGER, by default less or more, when stdout is a terminal with fewer lines.
void showPaged(const std::string& text);

} // namespace host::documentation

// The capabilities of a terminal.
#pragma once

#include <cstddef>

namespace host {

// Returns whether the file descriptor is a terminal with colours and NO_COLOR is not set.
bool showsColors(int descriptor);

struct TerminalSize {
    std::size_t columns = 0, rows = 0;
};

// Returns the size of the terminal on standard output; 0 by 0 when it is not a terminal, or one that does not know.
TerminalSize terminalSize();

} // namespace host

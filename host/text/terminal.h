// The capabilities of a terminal.
#pragma once

#include <cstddef>

namespace host {

// Returns whether the file descriptor is a terminal with colours and NO_COLOR is not set.
bool showsColors(int descriptor);

struct TerminalSize {
    std::size_t columns = 0, rows = 0;
};

// Returns the size of the terminal on standard output, or 0 by 0 if it is not a terminal or its size is unknown.
TerminalSize terminalSize();

} // namespace host

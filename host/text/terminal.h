// The capabilities of a terminal.
#pragma once

namespace host {

// Returns whether the file descriptor is a terminal with colours and NO_COLOR is not set.
bool showsColors(int descriptor);

} // namespace host

// Starts the host of a command.
#pragma once

#include "commands/commands.h"

namespace host::commands {

// Starts the host and loads the plugins, after the sibling plugin if `sibling` is true.
void startHost(const Start& start, bool sibling);
inline void startHost(const Start& start) { startHost(start, !start.noSibling); }

} // namespace host::commands

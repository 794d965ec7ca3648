// How a command starts its host.
#pragma once

#include "commands/commands.h"

namespace host::commands {

// Starts the host, and loads the sibling plugin, when it shall be there, and the plugins.
void startHost(const Start& start, bool sibling);
inline void startHost(const Start& start) { startHost(start, !start.noSibling); }

} // namespace host::commands

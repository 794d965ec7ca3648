// Loading plugin libraries.
#pragma once

#include <string>

namespace host {

// Loads the library, which stays loaded, and runs its REALPluginMain with the host's resolver. Throws std::runtime_error when
// there is no such library, it has no REALPluginMain, or the host cannot take a class record, with one line for each of those.
void loadPlugin(const std::string& path);

// The plugin that a program loads when it names none: libchromabridge.so, found in ../lib beside the program.
std::string defaultPluginPath();

} // namespace host

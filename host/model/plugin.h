// Loading plugin libraries.
#pragma once

#include <string>

namespace host {

// Loads the library, which stays loaded, and runs its REALPluginMain with the host's resolver. Throws std::runtime_error with one
// line that says what is wrong: no such library, no REALPluginMain, or a class record that the host could not take.
void loadPlugin(const std::string& path);

// libchromabridge.so in ../lib beside the running program.
std::string defaultPluginPath();

} // namespace host

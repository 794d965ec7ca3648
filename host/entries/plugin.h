// Loading plugin libraries.
#pragma once

#include "chromabridge/host_abi.h"

#include <string>

namespace host {

// Loads the library, which stays loaded, and calls its REALPluginMain once with the host's resolver. Throws
// std::runtime_error if the library does not exist or has no REALPluginMain, or with one line for each class record that
// the host cannot use.
void loadPlugin(const std::string& path);

// Loads the library with all symbols bound, which stays loaded, and returns its REALPluginMain without calling it. Throws
// like loadPlugin in the first two cases.
REALPluginMainProc openPlugin(const std::string& path);

// Returns the path of a plugin library in the folder of libraries that belongs to the running program: ../lib, unless it
// was installed elsewhere.
std::string bundledPlugin(const std::string& file);

} // namespace host

// Loading plugin libraries.
#pragma once

#include "chromabridge/host_abi.h"

#include <string>

namespace host {

// Loads the library, which stays loaded, and once runs its REALPluginMain with the host's resolver. Throws
// std::runtime_error when there is no such library, it has no REALPluginMain, or the host cannot take a class record, with
// one line for each of those.
void loadPlugin(const std::string& path);

// Loads the library with all its symbols bound, which stays loaded, and answers its REALPluginMain, which has not run.
// Throws like loadPlugin for the first two.
REALPluginMainProc openPlugin(const std::string& path);

// The path of a plugin library in the folder of libraries that belongs to the running program's own, lib beside it unless
// installed elsewhere.
std::string bundledPlugin(const std::string& file);

} // namespace host

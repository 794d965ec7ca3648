// The host as a plugin sees it: its version, its entry points by name, and the entry points that are withheld for a test.
#pragma once

#include "values/host_version.h"

#include "chromabridge/host_abi.h"

#include <string>
#include <vector>

namespace host {

struct HostOptions {
    double version = 2021.0;
    std::vector<std::string> without; // entry names that the resolver does not know
};

// Sets the version and the entry points and registers the built-in classes. Must be the first call, and runs once.
// Withholding a lock also withholds its unlock; objects or strings are then never destroyed. Withholding "REALGetRBVersion"
// simulates a host of the first version. Throws std::invalid_argument, which lists the known names, if a name in `without`
// is unknown, and if the version is negative or not a number.
void startHost(const HostOptions& options = {});

// Returns the control version that a plugin announced last, or 0 if none has.
int announcedControlVersion();

// The resolver that plugins receive.
void* resolveEntry(const char* name);

// Returns the names of all entry points of all host versions, in the order of the table.
std::vector<std::string> entryNames();

} // namespace host

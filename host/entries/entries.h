// The host as a plugin sees it: version, entry points by name, and what was taken away for a test.
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

// Sets version and entries and registers the built-in classes: once, first of all. A withheld lock takes its unlock along,
// and no object, or string, ends in that host; a withheld "REALGetRBVersion" makes it a host of the first version. Throws
// std::invalid_argument, listing the known names, when one of `without` is no entry of this host, and for a version below 0
// or none at all.
void startHost(const HostOptions& options = {});

// The control version that the plugin announced last; 0 before.
int announcedControlVersion();

// The resolver to hand to a plugin.
void* resolveEntry(const char* name);

// Every entry name of this host in any version, in the order of the table.
std::vector<std::string> entryNames();

} // namespace host

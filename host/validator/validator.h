// Holds a plugin against the contract, promise by promise.
#pragma once

#include <string>
#include <vector>

namespace host::validator {

// The plugin on trial, and the one that it is loaded beside, which does not answer for it; empty: none.
struct Trial {
    std::string plugin;
    std::string sibling;
};

struct Check {
    const char* name;
    const char* promise;
    // What breaks the promise, one line each; empty: nothing. The plugin is loaded in processes of the check's own only.
    std::string (*complaint)(const Trial& trial);
};

// In the order in which they are worth reading. The first is that the library loads: without that the others say the same.
const std::vector<Check>& checks();

} // namespace host::validator

// The command `browse`.
#pragma once

#include <iosfwd>
#include <string>

namespace host::commands {

struct BrowseOptions {
    std::string className; // empty: all classes
    std::string member;    // empty: the whole class
    bool markdown = false;
};

// Over the classes of the running host. Throws std::invalid_argument for names that nothing has.
int browse(const BrowseOptions& options, std::ostream& out);

} // namespace host::commands

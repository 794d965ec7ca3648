// The command `swatches`.
#pragma once

#include <string>
#include <vector>

namespace host::commands {

struct SwatchesOptions {
    std::string picture;           // the file to write, .svg or .png
    std::string list;              // a colour list's file; empty: no list
    std::vector<std::string> keys; // of the list
    std::string color;             // in hexadecimal, to show in every space; empty: none
};

// Draws with the classes of the running host. Throws std::invalid_argument for what is no colour or no picture's file name,
// and std::runtime_error for what cannot be drawn or written.
int swatches(const SwatchesOptions& options);

} // namespace host::commands

// Counts heap allocations, including those of every library in the process.
#pragma once

#include <cstddef>

namespace bench {

// Returns the number of blocks that the process has allocated since it started.
std::size_t allocations();

} // namespace bench

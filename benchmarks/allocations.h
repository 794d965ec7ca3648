// Counting heap allocations, those of every library in the process included.
#pragma once

#include <cstddef>

namespace bench {

// How many blocks have been asked for since the process started.
std::size_t allocations();

} // namespace bench

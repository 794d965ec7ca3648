// Functions for tests, beyond the platform's own interface.
#pragma once

#include <cstddef>

namespace chroma {

extern "C" {

// Returns the number of live instances of exactly the named class, or 0 for an unknown name. Objects that are never freed
// (single colours, standard spaces, constant strings) do not count. So the number returns to its previous value if retains
// and releases balance.
std::size_t builtin_liveInstances(const char* className);
}

} // namespace chroma

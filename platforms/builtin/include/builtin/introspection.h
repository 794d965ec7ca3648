// What tests may ask of the builtin platform beyond the platform's own interface.
#pragma once

#include <cstddef>

namespace chroma {

extern "C" {

// How many instances of exactly the named class are alive. Objects that the platform never frees (single colours, standard
// spaces, constant strings) are not counted, so that the number comes back to where it was when retains and releases
// balance. 0 for an unknown name.
std::size_t builtin_liveInstances(const char* className);
}

} // namespace chroma

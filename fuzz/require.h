// What a fuzz target demands of the code that it feeds.
#pragma once

#include <cstdlib>
#include <iostream>

namespace fuzz {

// Ends the process, which the fuzzer takes for a finding, unless the promise holds.
inline void require(bool holds, const char* promise) {
    if (holds) return;
    std::cerr << "broken: " << promise << "\n";
    std::abort();
}

} // namespace fuzz

// The checks that fuzz targets apply to the code under test.
#pragma once

#include <cstdlib>
#include <iostream>

namespace fuzz {

// Aborts the process unless the promise holds. The fuzzer reports this as a finding.
inline void require(bool holds, const char* promise) {
    if (holds) return;
    std::cerr << "broken: " << promise << "\n";
    std::abort();
}

} // namespace fuzz

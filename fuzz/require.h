// The checks that fuzz targets apply to the code under test.
#pragma once

#include <cstdlib>
#include <iostream>

namespace fuzz {

// Aborts the process if a condition does not hold. The fuzzer reports this as a finding.
inline void require(bool holds, const char* condition) {
    if (holds) return;
    std::cerr << "failed: " << condition << "\n";
    std::abort();
}

} // namespace fuzz

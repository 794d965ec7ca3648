// Measures the memory that the host's values occupy. It shows whether the host destroys a value when its last reference is
// dropped.
#pragma once

#include <cstddef>
#include <cstdint>

namespace probe {

// Larger than anything else that a host allocates besides the value.
constexpr std::int32_t largeSize = 1 << 20;

// Returns the number of bytes that the process has allocated, or 0 if that is unknown.
std::size_t allocatedBytes();

// Compares the allocated bytes with those at its creation. Works only for hosts that use the allocator of the C library.
class Growth {
public:
    // Returns whether a value of largeSize bytes exists that did not exist at the start.
    bool hasLargeValue() const { return allocatedBytes() >= start_ + largeSize / 2; }

private:
    std::size_t start_ = allocatedBytes();
};

} // namespace probe

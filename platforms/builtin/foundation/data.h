// NSData: immutable bytes.
#pragma once

#include "foundation/nsobject.h"

#include <cstdint>
#include <vector>

namespace chroma::builtin {

struct Data : Object {
    static ClassObject cls;

    std::vector<std::uint8_t> bytes;
};

ClassTable tableOfNSData();

// Returns an autoreleased object with a copy of the bytes.
Data* data(const std::uint8_t* bytes, std::size_t count);

} // namespace chroma::builtin

#pragma once

#include "appkit/icc/byte_reader.h"
#include "appkit/icc/table.h"

namespace chroma::builtin::icc {

// What the profile's header and the tag's name determine.
struct TableSides {
    std::size_t deviceChannels;
    bool isLabDevice; // the device colours are Lab
    bool isXyz;       // the PCS is XYZ, else Lab
    bool isToPcs;     // A2B, else B2A

    std::size_t inputs() const { return isToPcs ? deviceChannels : 3; }
    std::size_t outputs() const { return isToPcs ? 3 : deviceChannels; }
};

// Reads a table of any type: "mft1" and "mft2" of versions 2 and 4, "mAB " and "mBA " of version 4. Returns false if it is
// malformed or does not connect the given sides.
bool readTable(const ByteReader& value, const TableSides& sides, Table& table);

} // namespace chroma::builtin::icc

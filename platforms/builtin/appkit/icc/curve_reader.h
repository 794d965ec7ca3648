#pragma once

#include "appkit/icc/byte_reader.h"
#include "appkit/transfer_curve.h"

namespace chroma::builtin::icc {

// Reads a curve of type "curv" or "para" at the start of the value and ignores what follows. Returns false if it is
// malformed.
bool readCurve(const ByteReader& value, TransferCurve& curve);

// Returns the size in bytes of the curve at the start of the value.
std::size_t sizeOfCurve(const ByteReader& value);

} // namespace chroma::builtin::icc

#pragma once

#include "appkit/icc/byte_reader.h"
#include "appkit/transfer_curve.h"

namespace chroma::builtin::icc {

// Reads a curve of either type, "curv" or "para", from the start of the value; what follows it does not matter. False when
// it is malformed.
bool readCurve(const ByteReader& value, TransferCurve& curve);

// How many bytes the curve takes that was read from there.
std::size_t sizeOfCurve(const ByteReader& value);

} // namespace chroma::builtin::icc

// A slice as an assembler's source, for ELF.
#pragma once

#include "image.h"

#include <ostream>

namespace translator {

// Writes one section that holds the image at its own distances, taken from the file at `path`, with a label for each symbol,
// and a table of the protection that each segment asks for, which adapter.cpp reads.
void writeAssembly(const Image& image, const std::string& path, std::ostream& out);

} // namespace translator

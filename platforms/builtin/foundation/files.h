// Whole files.
#pragma once

#include <cstdint>
#include <vector>

namespace chroma::builtin {

// Appends the contents of a regular file. False when it cannot be read.
bool readFile(const char* path, std::vector<std::uint8_t>& contents);

} // namespace chroma::builtin

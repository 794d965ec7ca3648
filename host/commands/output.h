// What commands write.
#pragma once

#include <string>

namespace host::commands {

// Replaces the file's contents. Throws std::runtime_error that says in plain words why it cannot.
void writeFile(const std::string& file, const std::string& bytes);

} // namespace host::commands

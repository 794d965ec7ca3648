// Writes complete files.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace host {

// Replaces the contents of a file, or creates it. Follows links. Returns the system's error if a step fails.
//
// A regular file is replaced in one step by a new one with the same owner, group and permissions. So a full disk leaves the
// old contents. Other files are written directly: pipes, devices, and files that this process may write but cannot replace.
// The last are files of another owner, or in a folder that the process may not write.
std::error_code replaceFile(const std::filesystem::path& link, std::string_view bytes);

} // namespace host

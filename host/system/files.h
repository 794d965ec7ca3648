// Writes complete files.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace host {

// Replaces the contents of a file, or creates it. Follows links. Returns the system's reason when a step fails.
//
// A regular file is replaced in one step by a new one with the same owner, group and permissions, so that a full disk leaves
// the old contents. Pipes and devices are written directly, and so are files that this process may write but cannot replace:
// those in a folder that it may not write, and those of another owner.
std::error_code replaceFile(const std::filesystem::path& link, std::string_view bytes);

} // namespace host

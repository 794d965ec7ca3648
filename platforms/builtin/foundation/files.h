// Reads and replaces complete files. Paths are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace chroma::builtin {

// Appends the contents of a regular file. Returns false if the file cannot be read.
bool readFile(const char* path, std::vector<std::uint8_t>& contents);

// Replaces the contents of a regular file, or creates it, in one step: every reader gets the complete old file or the
// complete new one. Follows links, and keeps the file's owner, group and permissions. Returns false if the path leads to
// something other than a regular file, or if a step fails; the old file is then unchanged.
bool replaceFile(const std::string& link, std::string_view contents);

// Returns whether the user may not write the file. A file that no user may write is also protected from the superuser.
bool isWriteProtected(const std::string& path);

bool isFolder(const std::string& path);

// Creates the folder and the folders that contain it.
bool makeFolders(const std::string& path);

// Returns the user's folder for data of programs, or "" if the environment names none.
std::string userDataFolder();

} // namespace chroma::builtin

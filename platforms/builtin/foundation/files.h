// Whole files. Paths are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace chroma::builtin {

// Appends the contents of a regular file. False when it cannot be read.
bool readFile(const char* path, std::vector<std::uint8_t>& contents);

// Replaces the contents of a regular file, or creates it, in one step: whoever opens the path reads the complete old file or
// the complete new one. Follows links, and keeps the file's owner, group and permissions. Returns false when the path leads
// to something else than a regular file, or when a step fails; then the old file is unchanged.
bool replaceFile(const std::string& link, std::string_view contents);

// Whether the user may not write the file. One that nobody is meant to write is protected from the superuser too.
bool isWriteProtected(const std::string& path);

bool isFolder(const std::string& path);

// The folder and those that it is in.
bool makeFolders(const std::string& path);

// The user's folder for data of programs, "" when the environment names none.
std::string userDataFolder();

} // namespace chroma::builtin

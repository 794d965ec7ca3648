// Whole files. Paths are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace chroma::builtin {

// Appends the contents of a regular file. False when it cannot be read.
bool readFile(const char* path, std::vector<std::uint8_t>& contents);

// Puts the contents in the place of a file in one step: whoever opens the path meets the old file or the new one, whole.
// The file keeps its permissions, and a link goes on leading to it. False when something failed, and then the old file is
// still there.
bool replaceFile(const std::string& link, std::string_view contents);

// Whether the user may not write the file. One that nobody is meant to write is protected from the superuser too.
bool isWriteProtected(const std::string& path);

bool isFolder(const std::string& path);

// The folder and those that it is in.
bool makeFolders(const std::string& path);

// The user's folder for data of programs, "" when the environment names none.
std::string userDataFolder();

} // namespace chroma::builtin

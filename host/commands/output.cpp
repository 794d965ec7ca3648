#include "commands/output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace host::commands {

void writeFile(const std::string& file, const std::string& bytes) {
    const std::filesystem::path folder = std::filesystem::path(file).parent_path();
    std::error_code error;
    if (!folder.empty() && !std::filesystem::is_directory(folder, error))
        throw std::runtime_error(file + " cannot be written: there is no folder " + folder.string());
    std::FILE* const out = std::fopen(file.c_str(), "wb");
    bool isWritten = out && std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
    int reason = errno;
    if (out && std::fclose(out) != 0) {
        reason = errno;
        isWritten = false;
    }
    if (!isWritten) throw std::runtime_error(file + " cannot be written: " + std::strerror(reason));
}

} // namespace host::commands

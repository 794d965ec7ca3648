#include "foundation/files.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace chroma::builtin {

bool readFile(const char* path, std::vector<std::uint8_t>& contents) {
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    struct stat status;
    bool isRead = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    std::uint8_t chunk[16384];
    while (isRead) {
        const ssize_t count = read(file, chunk, sizeof chunk);
        if (count == 0) break;
        if (count > 0) {
            contents.insert(contents.end(), chunk, chunk + count);
        } else if (errno != EINTR) {
            isRead = false;
        }
    }
    close(file);
    return isRead;
}

} // namespace chroma::builtin

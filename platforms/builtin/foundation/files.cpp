#include "foundation/files.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace chroma::builtin {
namespace {

// An open file, closed with the scope.
class File {
public:
    explicit File(int descriptor) : descriptor_(descriptor) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { close(); }

    bool isOpen() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }

    bool close() {
        const int descriptor = descriptor_;
        descriptor_ = -1;
        return descriptor < 0 || ::close(descriptor) == 0;
    }

private:
    int descriptor_;
};

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool writeAll(int descriptor, std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t count = write(descriptor, contents.data(), contents.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        contents.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

// The file that the path leads to, over links.
std::string targetOf(const std::string& path) {
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) ? resolved : path;
}

// A new file beside the path, with the permissions that the user's new files get. Its name is put into `name`.
int createBeside(const std::string& path, std::string& name) {
    static std::atomic<unsigned> counter{0};
    for (;;) {
        name = path + "." + std::to_string(getpid()) + "-" + std::to_string(counter.fetch_add(1));
        const int descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0 || errno != EEXIST) return descriptor;
    }
}

// Makes the change of names in the folder last. A file system that cannot tell counts as having done it.
void syncFolder(const std::string& path) {
    const File folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen()) fsync(folder.descriptor());
}

} // namespace

bool readFile(const char* path, std::vector<std::uint8_t>& contents) {
    const File file(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK)); // a pipe without a writer would wait for one
    struct stat status;
    if (!file.isOpen() || fstat(file.descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    std::uint8_t chunk[16384];
    for (;;) {
        const ssize_t count = read(file.descriptor(), chunk, sizeof chunk);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return count == 0;
        contents.insert(contents.end(), chunk, chunk + count);
    }
}

bool replaceFile(const std::string& link, std::string_view contents) {
    const std::string path = targetOf(link);
    std::string temporary;
    File file(createBeside(path, temporary));
    if (!file.isOpen()) return false;
    struct stat old;
    const bool isOld = stat(path.c_str(), &old) == 0;
    const bool keepsMode = !isOld || fchmod(file.descriptor(), old.st_mode & 07777) == 0;
    const bool isWritten = keepsMode && writeAll(file.descriptor(), contents) && fsync(file.descriptor()) == 0 &&
                           file.close() && std::rename(temporary.c_str(), path.c_str()) == 0;
    if (!isWritten) {
        unlink(temporary.c_str());
        return false;
    }
    syncFolder(folderOf(path));
    return true;
}

bool isWriteProtected(const std::string& path) {
    constexpr mode_t anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return false;
    return (status.st_mode & anyWrite) == 0 || access(path.c_str(), W_OK) != 0;
}

bool isFolder(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool makeFolders(const std::string& path) {
    if (isFolder(path)) return true;
    const std::string parent = folderOf(path);
    return parent != path && makeFolders(parent) && (mkdir(path.c_str(), 0777) == 0 || isFolder(path));
}

std::string userDataFolder() {
    const char* const data = std::getenv("XDG_DATA_HOME");
    if (data && data[0] == '/') return data;
    const char* const home = std::getenv("HOME");
    return home && home[0] == '/' ? std::string(home) + "/.local/share" : "";
}

} // namespace chroma::builtin

#include "foundation/files.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace chroma::builtin {
namespace {

// An open file, which is closed at the end of the scope.
class File {
public:
    explicit File(int descriptor) : descriptor_(descriptor) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() {
        if (isOpen()) close(descriptor_);
    }

    bool isOpen() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }

private:
    const int descriptor_;
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

// Follows links, including one whose target does not exist yet. Returns "" if the links form a circle.
std::string targetOf(std::string path) {
    constexpr int maxLinks = 40; // the kernel's limit
    for (int links = 0; links <= maxLinks; ++links) {
        char text[PATH_MAX];
        const ssize_t size = readlink(path.c_str(), text, sizeof text);
        if (size <= 0) return path;
        const std::string target(text, static_cast<std::size_t>(size));
        path = target[0] == '/' ? target : folderOf(path) + "/" + target;
    }
    return "";
}

// While a file is written, its contents are in a temporary file next to it, which the writing process locks. So a temporary
// file without a lock was left behind by a process that was killed. The name ends with the process and a number.
std::string temporaryPrefix(const std::string& path) {
    constexpr std::size_t maxKept = 200; // a name has at most 255 bytes
    return "." + path.substr(path.rfind('/') + 1, maxKept) + ".saving-";
}

void removeAbandoned(const std::string& path) {
    const std::string prefix = temporaryPrefix(path);
    DIR* const folder = opendir(folderOf(path).c_str());
    while (const dirent* const entry = folder ? readdir(folder) : nullptr) {
        if (std::string_view(entry->d_name).substr(0, prefix.size()) != prefix) continue;
        const File file(openat(dirfd(folder), entry->d_name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (file.isOpen() && flock(file.descriptor(), LOCK_EX | LOCK_NB) == 0) unlinkat(dirfd(folder), entry->d_name, 0);
    }
    if (folder) closedir(folder);
}

// Creates a temporary file for the path, locked and with the permissions that the user's new files get. Sets `name` to its
// path.
int createTemporary(const std::string& path, std::string& name) {
    static std::atomic<unsigned> counter{0};
    for (;;) {
        name = folderOf(path) + "/" + temporaryPrefix(path) + std::to_string(getpid()) + "-" +
               std::to_string(counter.fetch_add(1));
        const int descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor < 0 && errno == EEXIST) continue;
        // A file system may not support locks. Another process may have removed the file before it was locked.
        struct stat status;
        const bool isTaken = descriptor >= 0 && flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        if (!isTaken && (descriptor < 0 || fstat(descriptor, &status) != 0 || status.st_nlink > 0)) return descriptor;
        close(descriptor);
    }
}

// Sets the owner, group and permissions of the old file on the new one. Returns false if that fails. Only the superuser can
// change owners: another user's file in a shared folder keeps only its group and permissions.
bool keepAccess(int descriptor, const struct stat& old) {
    const bool isOwned =
        fchown(descriptor, old.st_uid, old.st_gid) == 0 || fchown(descriptor, static_cast<uid_t>(-1), old.st_gid) == 0;
    return isOwned && fchmod(descriptor, old.st_mode & 0777) == 0;
}

// Makes the folder's changed names permanent. Ignores file systems that do not support this.
void syncFolder(const std::string& path) {
    const File folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen()) fsync(folder.descriptor());
}

} // namespace

bool readFile(const char* path, std::vector<std::uint8_t>& contents) {
    const File file(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK)); // otherwise a pipe without a writer would block
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
    struct stat old;
    const bool isOld = stat(path.c_str(), &old) == 0;
    if (isOld ? !S_ISREG(old.st_mode) : errno != ENOENT) return false;
    removeAbandoned(path);
    std::string temporary;
    const File file(createTemporary(path, temporary));
    if (!file.isOpen()) return false;
    const bool isWritten = (!isOld || keepAccess(file.descriptor(), old)) && writeAll(file.descriptor(), contents) &&
                           fsync(file.descriptor()) == 0 && std::rename(temporary.c_str(), path.c_str()) == 0;
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

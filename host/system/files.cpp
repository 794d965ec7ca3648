#include "system/files.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host {
namespace {

namespace fs = std::filesystem;

std::error_code lastError() { return {errno, std::generic_category()}; }

// The owner of the lock: this open file or another one; unknown on a file system without locks.
enum class Lock { held, taken, unknown };

class OpenFile {
public:
    OpenFile(const fs::path& path, int flags) : descriptor_(open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
    ~OpenFile() {
        if (isOpen()) close(descriptor_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isOpen() const { return descriptor_ >= 0; }

    bool write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
            if (count < 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    // Also succeeds for a pipe, which has no data to write to a disk.
    bool sync() const { return fsync(descriptor_) == 0 || errno == EINVAL || errno == EROFS; }

    bool keepAccess(const struct stat& old) const {
        return fchown(descriptor_, old.st_uid, old.st_gid) == 0 && fchmod(descriptor_, old.st_mode & 0777) == 0;
    }

    Lock lock() const {
        if (flock(descriptor_, LOCK_EX | LOCK_NB) == 0) return Lock::held;
        return errno == EWOULDBLOCK ? Lock::taken : Lock::unknown;
    }

    bool isRemoved() const {
        struct stat status;
        return fstat(descriptor_, &status) == 0 && status.st_nlink == 0;
    }

private:
    const int descriptor_;
};

// Follows links, including a link to a file that does not exist yet. The system reports links that form a circle.
fs::path targetOf(fs::path path) {
    constexpr int maxLinks = 40; // the kernel's limit
    std::error_code error;
    for (int links = 0; links < maxLinks; ++links) {
        const fs::path target = fs::read_symlink(path, error);
        if (error) break;
        path = path.parent_path() / target;
    }
    return path;
}

std::error_code overwrite(const fs::path& path, std::string_view bytes) {
    const OpenFile file(path, O_WRONLY | O_CREAT | O_TRUNC);
    return file.isOpen() && file.write(bytes) && file.sync() ? std::error_code() : lastError();
}

// Returns the start of the names of temporary files, before the process and a number. A temporary file is locked while it
// is written. One without a lock was left by a process that was killed.
std::string temporaryPrefix(const fs::path& path) {
    constexpr std::size_t maxKept = 200; // a name has at most 255 bytes
    return "." + path.filename().string().substr(0, maxKept) + ".saving-";
}

void removeAbandoned(const fs::path& path) {
    const std::string prefix = temporaryPrefix(path);
    std::error_code error;
    for (fs::directory_iterator entry(path.parent_path(), error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        if (entry->path().filename().string().rfind(prefix, 0) != 0) continue;
        const OpenFile file(entry->path(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
        if (file.isOpen() && file.lock() == Lock::held) unlink(entry->path().c_str());
    }
}

// Creates a temporary file with the permissions of the user's new files, and sets `name` to its path. If another process
// removes the file before it is locked, creates the next one.
std::unique_ptr<OpenFile> createTemporary(const fs::path& path, fs::path& name) {
    static std::atomic<unsigned> counter{0};
    for (;;) {
        name = path.parent_path() /
               (temporaryPrefix(path) + std::to_string(getpid()) + "-" + std::to_string(counter.fetch_add(1)));
        auto file = std::make_unique<OpenFile>(name, O_WRONLY | O_CREAT | O_EXCL);
        if (file->isOpen() ? file->lock() != Lock::taken && !file->isRemoved() : errno != EEXIST) return file;
    }
}

// Returns nullopt if the permissions of the folder or the owner of the file prevent the replacement.
std::optional<std::error_code> replaceRegular(const fs::path& path, const struct stat* old, std::string_view bytes) {
    fs::path name;
    const std::unique_ptr<OpenFile> file = createTemporary(path, name);
    if (!file->isOpen() && (errno == EACCES || errno == EPERM || errno == EROFS)) return std::nullopt;
    if (!file->isOpen()) return lastError();
    const bool isKept = !old || file->keepAccess(*old);
    if (isKept && file->write(bytes) && file->sync() && std::rename(name.c_str(), path.c_str()) == 0)
        return std::error_code();
    const std::error_code error = lastError();
    unlink(name.c_str());
    return isKept ? std::optional(error) : std::nullopt;
}

} // namespace

std::error_code replaceFile(const fs::path& link, std::string_view bytes) {
    std::error_code error;
    const fs::path path = targetOf(fs::absolute(link, error));
    struct stat old;
    const bool isOld = stat(path.c_str(), &old) == 0;
    if (!isOld && errno != ENOENT) return lastError();
    if (isOld && access(path.c_str(), W_OK) != 0) return lastError();
    if (isOld && !S_ISREG(old.st_mode)) return overwrite(path, bytes);
    removeAbandoned(path);
    const std::optional<std::error_code> replaced = replaceRegular(path, isOld ? &old : nullptr, bytes);
    return replaced ? *replaced : overwrite(path, bytes);
}

} // namespace host

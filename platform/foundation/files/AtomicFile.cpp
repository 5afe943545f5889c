#include "platform/foundation/files/AtomicFile.h"

#include <sys/stat.h>

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <optional>

#include "platform/foundation/files/FileDescriptor.h"

namespace zn {
namespace {

constexpr mode_t newFileMode = 0666;

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count < 0 ? 0 : count));
    }
    return true;
}

/// The folder with its slash; empty for the working folder.
std::string folderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

/// Whether the bytes must be on the disk before they take the place of others.
enum class Durability { Cached, OnDisk };

/// A new file that goes again unless it takes the place of another.
class TemporaryFile {
public:
    /// In the folder of the path; the name is short, whatever the other's.
    explicit TemporaryFile(const std::string& path) {
        static std::atomic<unsigned> counter{0};
        const std::string start = folderOf(path) + ".zarnic-" + std::to_string(getpid()) + '-';
        do {
            path_ = start + std::to_string(counter++);
            file_ = FileDescriptor(
                open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, newFileMode));
        } while (!file_.valid() && errno == EEXIST);
        placed_ = !file_.valid();
    }
    ~TemporaryFile() {
        if (!placed_)
            unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool fill(std::string_view bytes, std::optional<mode_t> mode, Durability durability) {
        return file_.valid() && (!mode || fchmod(file_.number(), *mode) == 0) &&
               writeAll(file_.number(), bytes) &&
               (durability == Durability::Cached || fsync(file_.number()) == 0) && file_.close();
    }

    bool replace(const std::string& path) {
        placed_ = std::rename(path_.c_str(), path.c_str()) == 0;
        return placed_;
    }

private:
    std::string path_;
    FileDescriptor file_;
    bool placed_;
};

/// The new name lasts once the folder is on the disk, too. Some file systems cannot do this.
void syncFolderOf(const std::string& path) {
    const std::string folder = folderOf(path);
    const FileDescriptor file(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (file.valid())
        fsync(file.number());
}

std::string withoutLinks(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_symlink(path, error))
        return path;
    const auto target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
}

}  // namespace

bool writeFileAtomically(const std::string& path, std::string_view bytes) {
    const std::string target = withoutLinks(path);
    std::optional<mode_t> mode;
    auto durability = Durability::Cached;
    struct stat old = {};
    if (lstat(target.c_str(), &old) == 0) {
        if (!S_ISREG(old.st_mode) && !S_ISLNK(old.st_mode))
            return false;
        if (S_ISREG(old.st_mode))
            mode = old.st_mode & 07777;
        // Without a file that could be lost there is nothing to wait for.
        if (old.st_size > 0)
            durability = Durability::OnDisk;
    }
    TemporaryFile file(target);
    if (!file.fill(bytes, mode, durability) || !file.replace(target))
        return false;
    if (durability == Durability::OnDisk)
        syncFolderOf(target);
    return true;
}

bool writeFileInPlace(const std::string& path, std::string_view bytes) {
    FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, newFileMode));
    return file.valid() && writeAll(file.number(), bytes) && file.close();
}

}  // namespace zn

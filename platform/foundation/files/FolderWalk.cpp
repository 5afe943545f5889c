#include "platform/foundation/files/FolderWalk.h"

#include <dirent.h>

#include <array>
#include <cstring>

namespace zn {
namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
/// Of the folders on the way so many, the lowest ones, are open.
constexpr std::size_t maximumOpen = 64;

FolderWalk::Kind kindOf(mode_t mode) {
    if (S_ISLNK(mode))
        return FolderWalk::Kind::Link;
    return S_ISDIR(mode) ? FolderWalk::Kind::Folder : FolderWalk::Kind::File;
}

bool isDots(const char* name) {
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

}  // namespace

FolderWalk::Outcome FolderWalk::walk(const std::string& start) {
    levels_.clear();
    path_.clear();
    bool listed = enter(FileDescriptor(open(start.c_str(), folderFlags)));
    while (listed && !levels_.empty())
        listed = levels_.back().folders.empty() ? leave() : enterNext();
    return listed ? Outcome::Finished : Outcome::Failed;
}

bool FolderWalk::enter(FileDescriptor file) {
    if (!file.valid())
        return false;
    levels_.push_back({std::move(file), path_.size(), {}});
    if (levels_.size() > maximumOpen)
        suspend(levels_[levels_.size() - 1 - maximumOpen]);
    return list(levels_.back());
}

bool FolderWalk::enterNext() {
    Level& level = levels_.back();
    const std::string name = std::move(level.folders.back());
    level.folders.pop_back();
    FileDescriptor file(openat(level.file.number(), name.c_str(), folderFlags | O_NOFOLLOW));
    // Gone, or something else by now.
    if (!file.valid() && (errno == ENOENT || errno == ENOTDIR || errno == ELOOP))
        return true;
    path_.resize(level.pathLength);
    path_.append(name) += '/';
    return enter(std::move(file));
}

bool FolderWalk::leave() {
    const Level child = std::move(levels_.back());
    levels_.pop_back();
    return levels_.empty() || levels_.back().file.valid() || resume(levels_.back(), child);
}

bool FolderWalk::list(Level& level) {
    alignas(dirent64) std::array<char, 32768> buffer;
    while (true) {
        const ssize_t size = getdents64(level.file.number(), buffer.data(), buffer.size());
        if (size <= 0)
            return size == 0;
        for (ssize_t offset = 0; offset < size;) {
            const auto* entry =
                reinterpret_cast<const dirent64*>(&buffer[static_cast<std::size_t>(offset)]);
            if (!isDots(entry->d_name))
                meet(level, entry->d_name, entry->d_type);
            offset += entry->d_reclen;
        }
    }
}

void FolderWalk::meet(Level& level, const char* name, unsigned char type) {
    auto mode = static_cast<mode_t>(DTTOIF(type));
    if (type == DT_UNKNOWN) {
        struct stat status = {};
        if (fstatat(level.file.number(), name, &status, AT_SYMLINK_NOFOLLOW) != 0)
            return;
        mode = status.st_mode;
    }
    const Kind kind = kindOf(mode);
    visit({level.file.number(), name, kind, levels_.size(),
           std::string_view(path_).substr(0, path_.size())});
    if (kind == Kind::Folder)
        level.folders.emplace_back(name);
}

void FolderWalk::suspend(Level& level) {
    struct stat status = {};
    if (!level.file.valid() || fstat(level.file.number(), &status) != 0)
        return;
    level.device = status.st_dev;
    level.number = status.st_ino;
    level.file.close();
}

/// False when the child was moved elsewhere meanwhile.
bool FolderWalk::resume(Level& level, const Level& child) {
    level.file = FileDescriptor(openat(child.file.number(), "..", folderFlags));
    struct stat status = {};
    return level.file.valid() && fstat(level.file.number(), &status) == 0 &&
           status.st_dev == level.device && status.st_ino == level.number;
}

}  // namespace zn

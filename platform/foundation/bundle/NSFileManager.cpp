#include "zarnic/platform/foundation/NSFileManager.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "platform/foundation/files/FolderWalk.h"
#include "zarnic/platform/foundation/ValueFiles.h"

namespace zn {
namespace {

namespace fs = std::filesystem;

/// The system's names end at a zero; a path with one in it must not become a shorter one.
bool namesSomething(std::string_view path) {
    return !path.empty() && path.find('\0') == path.npos;
}

class Subpaths final : public FolderWalk {
public:
    std::vector<std::string> take() {
        std::ranges::sort(paths_);
        return std::move(paths_);
    }

protected:
    void visit(const Entry& entry) override {
        paths_.emplace_back(entry.parent).append(entry.name);
    }

private:
    std::vector<std::string> paths_;
};

}  // namespace

Ref<NSFileManager> NSFileManager::defaultManager() {
    static const auto* shared = new Ref<NSFileManager>(make<NSFileManager>());
    return *shared;
}

bool NSFileManager::fileExistsAtPath(std::string_view path) const {
    bool isDirectory = false;
    return fileExistsAtPath(path, isDirectory);
}

bool NSFileManager::fileExistsAtPath(std::string_view path, bool& isDirectory) const {
    struct stat status = {};
    const bool exists = namesSomething(path) && stat(std::string(path).c_str(), &status) == 0;
    isDirectory = exists && S_ISDIR(status.st_mode);
    return exists;
}

bool NSFileManager::createDirectoryAtPath(std::string_view path,
                                          bool withIntermediateDirectories) const {
    if (!namesSomething(path))
        return false;
    std::error_code error;
    if (!withIntermediateDirectories)
        return fs::create_directory(path, error);
    fs::create_directories(path, error);
    return fs::is_directory(path, error);
}

bool NSFileManager::createFileAtPath(std::string_view path, const Value& contents) const {
    return writeToFile(contents.isData() ? contents : Value(""), path, false);
}

bool NSFileManager::removeItemAtPath(std::string_view path) const {
    std::error_code error;
    return namesSomething(path) && fs::remove_all(path, error) > 0 && !error;
}

std::optional<std::vector<std::string>> NSFileManager::subpathsOfDirectoryAtPath(
    std::string_view path) const {
    Subpaths walk;
    if (!namesSomething(path) || walk.walk(std::string(path)) == FolderWalk::Outcome::Failed)
        return std::nullopt;
    return walk.take();
}

std::optional<std::int64_t> NSFileManager::fileSizeAtPath(std::string_view path) const {
    struct stat status = {};
    if (!namesSomething(path) || lstat(std::string(path).c_str(), &status) != 0)
        return std::nullopt;
    return status.st_size;
}

}  // namespace zn

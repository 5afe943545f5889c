#include "zarnic/ZNFileHelper.h"

#include <filesystem>

#include "storage/WeightedSize.h"
#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/foundation/NSFileManager.h"
#include "zarnic/platform/foundation/NSString.h"
#include "zarnic/platform/foundation/ValueFiles.h"

namespace zn {
namespace {

NSFileManager& files() {
    return *NSFileManager::defaultManager();
}

bool isFolder(std::string_view path) {
    bool isDirectory = false;
    return files().fileExistsAtPath(path, isDirectory) && isDirectory;
}

bool makeFolderOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash != path.npos && files().createDirectoryAtPath(path.substr(0, slash), true);
}

/// Whole from the moment on at which others see it; empty when it cannot be written.
bool makeFile(std::string_view path, const Value& fileData) {
    // Through a link that leads nowhere its target is made.
    if (std::error_code error; std::filesystem::is_symlink(path, error))
        return files().createFileAtPath(path) && (writeToFile(fileData, path, true), true);
    return writeToFile(fileData, path, true) || files().createFileAtPath(path);
}

}  // namespace

std::optional<std::string> ZNFileHelper::GetFilePath(std::uint64_t directory,
                                                     std::string_view fileName) {
    const auto folders = NSSearchPathForDirectoriesInDomains(static_cast<std::int64_t>(directory));
    if (folders.empty())
        return std::nullopt;
    return stringByAppendingPathComponent(folders.front(), fileName);
}

std::optional<std::string> ZNFileHelper::GetFilePath(NSSearchPathDirectory directory,
                                                     std::string_view fileName) {
    return GetFilePath(static_cast<std::uint64_t>(directory), fileName);
}

bool ZNFileHelper::FileExistsAtPath(std::string_view path) {
    return files().fileExistsAtPath(path);
}

bool ZNFileHelper::WriteFileAtPath(std::string_view path, bool withIntermediateDirectories,
                                   const Value& fileData) {
    if (!zn_NotNull(fileData))
        return false;
    if (!FileExistsAtPath(path))
        return withIntermediateDirectories && makeFolderOf(path) && makeFile(path, fileData);
    // On purpose the outcome of the writing itself does not count.
    writeToFile(fileData, path, true);
    return true;
}

Value ZNFileHelper::ReadFileAtPath(std::string_view path) {
    return dataWithContentsOfFile(path);
}

bool ZNFileHelper::DeleteFileAtPath(std::string_view path) {
    return FileExistsAtPath(path) && files().removeItemAtPath(path);
}

std::optional<std::vector<std::string>> ZNFileHelper::GetAllSubFilesAtPath(std::string_view path) {
    return files().subpathsOfDirectoryAtPath(path);
}

std::int64_t ZNFileHelper::GetFileSizeAtPath(std::string_view path) {
    if (!FileExistsAtPath(path))
        return 0;
    if (isFolder(path))
        return weightedSizeOfFolder(std::string(path));
    return files().fileSizeAtPath(path).value_or(0);
}

}  // namespace zn

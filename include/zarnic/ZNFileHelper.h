#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/NSPathUtilities.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// The application's files by path. Nothing raises or logs, except where it says so; what cannot be
/// done gives false, 0, an absent value or nothing. Safe from any thread.
class ZN_EXPORT ZNFileHelper {
public:
    ZNFileHelper() = delete;

    /// The path of a file in one of the application's folders (see `NSPathUtilities.h`), whether or
    /// not there is one; nothing for an unknown kind of folder.
    static std::optional<std::string> GetFilePath(std::uint64_t directory,
                                                  std::string_view fileName);
    static std::optional<std::string> GetFilePath(NSSearchPathDirectory directory,
                                                  std::string_view fileName);

    /// Links are followed.
    static bool FileExistsAtPath(std::string_view path);

    /// Replaces a file atomically with the value (see `writeToFile`), or makes a new one with all
    /// folders on its way; a new one only with `withIntermediateDirectories`, even when its folder
    /// is there. True on purpose, too, when only the writing itself failed; a new file is then
    /// empty. False for what counts as null (see `zn_NotNull`) and when a folder or the file cannot
    /// be made. Throws `NSInvalidArgumentException` for a number or an object.
    static bool WriteFileAtPath(std::string_view path, bool withIntermediateDirectories,
                                const Value& fileData);

    /// The file's bytes as data, or absent.
    static Value ReadFileAtPath(std::string_view path);

    /// Also a folder with all that is in it. False when nothing is there or something of it stays.
    static bool DeleteFileAtPath(std::string_view path);

    /// Everything below a folder at every depth (see
    /// `NSFileManager::subpathsOfDirectoryAtPath`); nothing when the path is no folder or something
    /// in it cannot be listed.
    static std::optional<std::vector<std::string>> GetAllSubFilesAtPath(std::string_view path);

    /// The bytes of a file (of a link itself, when it leads to a file), or the sum over a folder.
    /// On purpose each folder on the way counts again what is below it: a file directly in the
    /// folder counts once, one level down twice, then 4 times, 8 times, doubling. At most
    /// `INT64_MAX`; folders that links in it lead to are not followed; 0 when nothing is there or
    /// something in it cannot be listed.
    static std::int64_t GetFileSizeAtPath(std::string_view path);
};

}  // namespace zn

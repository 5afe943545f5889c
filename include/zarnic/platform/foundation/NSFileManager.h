#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// Files and folders by path. Relative paths begin at the working folder; an empty path, or one
/// with a zero in it, names nothing. Safe from any thread.
class ZN_EXPORT NSFileManager final : public NSObject {
    ZN_OBJECT(NSFileManager, NSObject)
public:
    static Ref<NSFileManager> defaultManager();

    /// Links are followed: one that leads nowhere does not exist.
    bool fileExistsAtPath(std::string_view path) const;
    /// Also tells whether it is a folder, or a link to one.
    bool fileExistsAtPath(std::string_view path, bool& isDirectory) const;

    /// True also when the folder is there already and intermediate ones are wanted; without them
    /// the parent must be there and the folder must not.
    bool createDirectoryAtPath(std::string_view path, bool withIntermediateDirectories) const;
    /// Makes the file or empties it, then writes the data into it; absent contents leave it empty.
    /// False when that fails, for a folder and when the parent is missing.
    bool createFileAtPath(std::string_view path, const Value& contents = {}) const;
    /// A folder goes with all that is in it, a link without what it leads to. False when something
    /// of it stays or nothing is there.
    bool removeItemAtPath(std::string_view path) const;

    /// Paths, relative to the folder and in ascending order, of everything below it: files,
    /// folders, hidden ones, and links, which are not followed. Nothing when the path is no folder
    /// or something in it cannot be listed.
    std::optional<std::vector<std::string>> subpathsOfDirectoryAtPath(std::string_view path) const;
    /// In bytes, of a link itself; nothing when it cannot be asked.
    std::optional<std::int64_t> fileSizeAtPath(std::string_view path) const;
};

}  // namespace zn

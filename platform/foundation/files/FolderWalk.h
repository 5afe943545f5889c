#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/files/FileDescriptor.h"

namespace zn {

/// Goes once over everything below a folder, in the order of the file system. Links are not
/// followed, so there are no cycles; what disappears meanwhile is left out. Takes time in
/// proportion to the entries and bounded numbers of open files and of stack, however deep it goes.
class FolderWalk {
public:
    enum class Kind { File, Folder, Link };
    enum class Outcome : bool { Failed, Finished };
    /// One entry, valid during the visit.
    struct Entry {
        int folder;  ///< Open; the name is in it.
        const char* name;
        Kind kind;
        std::size_t depth;        ///< 1 for what is directly inside.
        std::string_view parent;  ///< Path from the start with a slash at its end, or empty.
    };

    virtual ~FolderWalk() = default;
    /// Failed when the start is no folder or a folder cannot be listed.
    Outcome walk(const std::string& start);

protected:
    virtual void visit(const Entry& entry) = 0;

private:
    /// A folder on the way to the present one.
    struct Level {
        FileDescriptor file;
        std::size_t pathLength;  ///< Of its own path within `path_`.
        std::vector<std::string> folders;
        dev_t device = 0;
        ino_t number = 0;
    };

    bool enter(FileDescriptor file);
    bool enterNext();
    bool leave();
    bool list(Level& level);
    void meet(Level& level, const char* name, unsigned char type);
    static void suspend(Level& level);
    static bool resume(Level& level, const Level& child);

    std::vector<Level> levels_;
    std::string path_;
};

}  // namespace zn

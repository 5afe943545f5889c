#include "platform/foundation/bundle/DefaultsFile.h"

#include <sys/file.h>

#include <cstdio>
#include <filesystem>

#include "platform/foundation/files/AtomicFile.h"
#include "platform/foundation/files/FileDescriptor.h"
#include "platform/foundation/plist/PropertyListWriters.h"
#include "zarnic/platform/foundation/NSLog.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"

namespace zn {
namespace {

/// Held between programs. The file with the settings itself cannot carry the lock: it is replaced.
class FileLock {
public:
    explicit FileLock(const std::string& path)
        : file_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        int result = -1;
        do
            result = flock(file_.number(), LOCK_EX);
        while (result != 0 && errno == EINTR);
        held_ = result == 0;
    }
    bool held() const { return held_; }

private:
    FileDescriptor file_;
    bool held_ = false;
};

}  // namespace

Dictionary DefaultsFile::read() const {
    const Value list = NSPropertyListSerialization::propertyListWithContentsOfFile(path_);
    return list.isDictionary() ? list.dictionary() : Dictionary();
}

std::optional<Dictionary> DefaultsFile::change(const Changes& changes) {
    const FileLock lock(path_ + ".lock");
    if (!lock.held() || !putDamagedAside())
        return std::nullopt;
    Dictionary merged = read().mutableCopy();
    for (const auto& [key, value] : changes) {
        if (value.absent())
            merged.remove(key);
        else
            merged.set(key, value);
    }
    const auto bytes = binaryPropertyList(merged);
    if (!bytes || !writeFileAtomically(path_, *bytes))
        return std::nullopt;
    return merged;
}

/// What cannot be understood may still be of use to somebody.
bool DefaultsFile::putDamagedAside() const {
    namespace fs = std::filesystem;
    std::error_code error;
    const auto status = fs::status(path_, error);
    if (status.type() == fs::file_type::not_found)
        return true;
    if (!fs::is_regular_file(status) || access(path_.c_str(), R_OK) != 0)
        return false;
    if (fs::file_size(path_, error) == 0 ||
        NSPropertyListSerialization::propertyListWithContentsOfFile(path_).isDictionary())
        return true;
    const std::string aside = path_ + ".damaged";
    NSLog("The user defaults are damaged and were put aside: %s", aside.c_str());
    return std::rename(path_.c_str(), aside.c_str()) == 0;
}

}  // namespace zn

#include "platform/foundation/files/FileBytes.h"

#include <sys/stat.h>

#include <algorithm>

#include "platform/foundation/files/FileDescriptor.h"

namespace zn {

std::optional<std::string> fileBytes(std::string_view path) {
    if (path.find('\0') != path.npos)
        return std::nullopt;
    // Opening a pipe must not wait for its other end.
    const FileDescriptor file(
        open(std::string(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status = {};
    if (!file.valid() || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    // The size is a guess: the file may grow, and some of the system's own say 0.
    constexpr std::size_t leastRoom = 4096;
    std::string bytes;
    std::size_t length = 0;
    bytes.resize(static_cast<std::size_t>(status.st_size) + 1);
    while (true) {
        const ssize_t count = ::read(file.number(), bytes.data() + length, bytes.size() - length);
        if (count < 0 && errno != EINTR)
            return std::nullopt;
        if (count == 0)
            break;
        length += static_cast<std::size_t>(count < 0 ? 0 : count);
        if (length == bytes.size())
            bytes.resize(length + std::max(length, leastRoom));
    }
    bytes.resize(length);
    return bytes;
}

}  // namespace zn

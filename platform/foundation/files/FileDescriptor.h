#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace zn {

/// An open file, closed at the end.
class FileDescriptor {
public:
    explicit FileDescriptor(int number = -1) noexcept : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() { close(); }

    bool valid() const noexcept { return number_ >= 0; }
    int number() const noexcept { return number_; }
    /// The descriptor, which is then no longer ours to close.
    int release() noexcept { return std::exchange(number_, -1); }
    /// False when the system could not write what it had kept back.
    bool close() noexcept {
        const int number = release();
        return number < 0 || ::close(number) == 0 || errno == EINTR;
    }

private:
    int number_;
};

}  // namespace zn

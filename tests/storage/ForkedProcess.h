#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace zn {

/// A copy of this process, made before it has threads or an open database, that does some work and
/// can be killed in the middle of it.
class ForkedProcess {
public:
    /// Sends a number to the process that made this one.
    using Tell = std::function<void(std::int32_t)>;

    explicit ForkedProcess(const std::function<void(const Tell&)>& work) {
        int ends[2];
        if (pipe(ends) != 0)
            return;
        pid_ = fork();
        if (pid_ == 0) {
            work([&](std::int32_t number) {
                if (write(ends[1], &number, sizeof number) != sizeof number)
                    _exit(2);
            });
            _exit(0);
        }
        close(ends[1]);
        pipe_ = ends[0];
    }
    ~ForkedProcess() {
        kill();
        if (pipe_ >= 0)
            close(pipe_);
    }
    ForkedProcess(const ForkedProcess&) = delete;
    ForkedProcess& operator=(const ForkedProcess&) = delete;

    /// What it tells next; nothing when it has ended and everything was heard.
    std::optional<std::int32_t> hear() {
        std::int32_t number = 0;
        if (read(pipe_, &number, sizeof number) != sizeof number)
            return std::nullopt;
        return number;
    }
    /// Ends it at once, wherever it is.
    void kill() {
        if (pid_ > 0)
            ::kill(pid_, SIGKILL);
        wait();
    }
    void wait() {
        if (pid_ > 0)
            waitpid(pid_, nullptr, 0);
        pid_ = -1;
    }

private:
    pid_t pid_ = -1;
    int pipe_ = -1;
};

}  // namespace zn

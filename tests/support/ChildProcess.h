#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace zn {

/// A program that a test starts and, when the test is done with it, ends.
class ChildProcess {
public:
    /// Starts the program with `PATH` looked through; `environment` entries are "NAME=value" and
    /// come on top of the test's own. Its descriptor 3 is ours to read from.
    ChildProcess(const std::vector<std::string>& command,
                 const std::vector<std::string>& environment = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    bool started() const { return pid_ > 0; }
    bool running();
    /// The exit status; -1 when a signal ended it.
    int wait();
    /// One line from its descriptor 3; empty at the end.
    std::string readLine();
    /// All that is left from its descriptor 3.
    std::string readAll();

private:
    pid_t pid_ = -1;
    int pipe_ = -1;
    int status_ = 0;
};

/// Runs the command through the shell with its output on our side; the exit status and the output.
struct CommandResult {
    int status;
    std::string output;
};
CommandResult runCommand(const std::string& command,
                         const std::vector<std::string>& environment = {});

}  // namespace zn

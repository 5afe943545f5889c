#include "tests/support/ChildProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zn {
namespace {

std::vector<char*> pointers(const std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (const std::string& text : texts)
        result.push_back(const_cast<char*>(text.c_str()));
    result.push_back(nullptr);
    return result;
}

/// Entries of the same name replace the test's own.
std::vector<std::string> environmentWith(const std::vector<std::string>& extra) {
    std::vector<std::string> all = extra;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        const std::string name = text.substr(0, text.find('=') + 1);
        bool replaced = false;
        for (const std::string& each : extra)
            replaced = replaced || each.starts_with(name);
        if (!replaced)
            all.push_back(text);
    }
    return all;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command,
                           const std::vector<std::string>& environment) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], 3);
    const std::vector<std::string> variables = environmentWith(environment);
    if (posix_spawnp(&pid_, command.front().c_str(), &actions, nullptr, pointers(command).data(),
                     pointers(variables).data()) != 0)
        pid_ = -1;
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    pipe_ = ends[0];
}

ChildProcess::~ChildProcess() {
    if (running()) {
        kill(pid_, SIGTERM);
        wait();
    }
    if (pipe_ >= 0)
        close(pipe_);
}

bool ChildProcess::running() {
    if (pid_ > 0 && waitpid(pid_, &status_, WNOHANG) == pid_)
        pid_ = -1;
    return pid_ > 0;
}

int ChildProcess::wait() {
    if (pid_ > 0)
        waitpid(pid_, &status_, 0);
    pid_ = -1;
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1;
}

std::string ChildProcess::readLine() {
    std::string line;
    char character;
    while (read(pipe_, &character, 1) == 1 && character != '\n')
        line += character;
    return line;
}

std::string ChildProcess::readAll() {
    std::string all;
    char buffer[4096];
    for (ssize_t count; (count = read(pipe_, buffer, sizeof buffer)) > 0;)
        all.append(buffer, static_cast<std::size_t>(count));
    return all;
}

CommandResult runCommand(const std::string& command, const std::vector<std::string>& environment) {
    ChildProcess shell({"sh", "-c", "exec >&3 2>&3; " + command}, environment);
    std::string output = shell.readAll();
    return {shell.wait(), std::move(output)};
}

}  // namespace zn

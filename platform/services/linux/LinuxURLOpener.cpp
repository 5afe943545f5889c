#include "platform/services/linux/LinuxURLOpener.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <thread>

#include "zarnic/platform/foundation/Dispatch.h"

namespace zn {
namespace {

void complete(std::function<void(bool)> completion, bool opened) {
    if (completion)
        dispatchMain([completion = std::move(completion), opened] { completion(opened); });
}

/// Starts the program with default signals and no descriptors but the standard ones.
std::optional<pid_t> started(const std::string& program, const std::string& argument) {
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);

    char* const arguments[] = {const_cast<char*>(program.c_str()),
                               const_cast<char*>(argument.c_str()), nullptr};
    pid_t process = 0;
    const int error =
        posix_spawnp(&process, program.c_str(), &actions, &attributes, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    return error == 0 ? std::optional(process) : std::nullopt;
}

/// Waits for the end of a process. Where the program ignores its children there is nothing to wait
/// for, and what has begun counts as done.
bool endsWell(pid_t process) {
    int status = 0;
    pid_t ended = 0;
    do
        ended = waitpid(process, &status, 0);
    while (ended < 0 && errno == EINTR);
    return ended != process || (WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

}  // namespace

LinuxURLOpener::LinuxURLOpener(std::string program) : program_(std::move(program)) {}

void LinuxURLOpener::open(std::string_view url, std::function<void(bool)> completion) {
    const auto process = isURL(url) ? started(program_, std::string(url)) : std::optional<pid_t>();
    if (!process) {
        complete(std::move(completion), false);
        return;
    }
    // A browser that was not running yet may keep its starter for hours: no thread of the pool.
    std::thread([process = *process, completion = std::move(completion)]() mutable {
        const bool opened = endsWell(process);
        complete(std::move(completion), opened);
    }).detach();
}

}  // namespace zn

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

/// Starts the program with its standard output to a pipe; its process, or less than 0.
pid_t start(const char* program, const std::array<int, 2>& pipe) {
    char* const arguments[] = {const_cast<char*>(program), nullptr};
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, pipe[1], STDOUT_FILENO);
    pid_t child = -1;
    const int failure = posix_spawn(&child, program, &files, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&files);
    return failure ? -1 : child;
}

/// Runs the program to its end; its peak of memory in MB, which it prints in KB, or 0.
double run(const char* program) {
    std::array<int, 2> pipe{};
    if (pipe2(pipe.data(), O_CLOEXEC) != 0)
        return 0;
    const pid_t child = start(program, pipe);
    close(pipe[1]);
    std::array<char, 32> printed{};
    const bool read = ::read(pipe[0], printed.data(), printed.size() - 1) > 0;
    close(pipe[0]);
    int status = -1;
    if (child > 0)
        waitpid(child, &status, 0);
    return read && status == 0 ? std::strtod(printed.data(), nullptr) / 1024 : 0;
}

void startProgram(benchmark::State& state, const char* program) {
    double peak = 0;
    for (auto _ : state) {
        const double memory = run(program);
        if (memory <= 0)
            state.SkipWithError("the program failed");
        peak = std::max(peak, memory);
    }
    state.counters["MB"] = peak;
}

void Start_Zarnic(benchmark::State& state) {
    startProgram(state, ZARNIC_START);
}

void Start_Qt(benchmark::State& state) {
    startProgram(state, QT_START);
}

BENCHMARK(Start_Zarnic)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Start_Qt)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

#include "Processes.h"

#include <array>
#include <cstdlib>
#include <stdexcept>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook::bench {

namespace {

/// Without a copy of this process, which would be counted among what the program takes.
pid_t start(std::vector<std::string> command, int output) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t child = 0;
    const int failure = posix_spawn(&child, arguments.front(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0)
        throw std::runtime_error("no new process");
    return child;
}

rusage wait(pid_t child, const std::string& program) {
    int status = 0;
    rusage used{};
    if (wait4(child, &status, 0, &used) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(program + " failed");
    return used;
}

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

}  // namespace

double processorTimeOf(const std::vector<std::string>& command) {
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    const rusage used = wait(start(command, nowhere), command.front());
    close(nowhere);
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

std::string outputOf(const std::vector<std::string>& command) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = start(command, ends[1]);
    close(ends[1]);
    std::string output;
    std::array<char, 256> part{};
    for (ssize_t size = 0; (size = read(ends[0], part.data(), part.size())) > 0;)
        output.append(part.data(), static_cast<std::size_t>(size));
    close(ends[0]);
    wait(child, command.front());
    return output;
}

}  // namespace tallybrook::bench

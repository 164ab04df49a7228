#include "patcher/trial.h"

#include "foundation/text.h"
#include "platform/posix/descriptor.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>

extern char** environ;

namespace ombrin::patcher {

namespace {

/// The status of a child that ends within the time; nothing when it is still running then.
std::optional<int> EndOf(pid_t child, Milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    const Descriptor process(static_cast<int>(syscall(SYS_pidfd_open, child, 0)));
    while (true) {
        int status = 0;
        if (waitpid(child, &status, WNOHANG) == child) return status;
        const auto left = std::chrono::ceil<Milliseconds>(end - std::chrono::steady_clock::now());
        if (left.count() <= 0) return std::nullopt;
        pollfd watched{process.Number(), POLLIN, 0};
        if (process)
            poll(&watched, 1, static_cast<int>(left.count()));
        else
            std::this_thread::sleep_for(std::min(left, Milliseconds(50))); // a kernel without pidfd_open
    }
}

int Spawn(const std::string& program, pid_t& child) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    sigset_t none, usual;
    sigemptyset(&none);
    sigfillset(&usual);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &usual);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
    char* const arguments[] = {const_cast<char*>(program.c_str()), nullptr};
    const int problem = posix_spawn(&child, program.c_str(), &actions, &attributes, arguments, environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return problem;
}

} // namespace

std::string StartOnTrial(const std::string& program, Milliseconds trial) {
    pid_t child = -1;
    if (const int problem = Spawn(program, child); problem != 0)
        return Join("cannot be started: ", std::strerror(problem));
    const auto status = EndOf(child, trial);
    if (!status || (WIFEXITED(*status) && WEXITSTATUS(*status) == 0)) return "";
    return WIFSIGNALED(*status) ? Join("was ended by signal ", std::to_string(WTERMSIG(*status)), " at its start")
                                : Join("ended with status ", std::to_string(WEXITSTATUS(*status)), " at its start");
}

bool RunApart(const std::function<void()>& body, Milliseconds patience) {
    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0) {
        try {
            body();
        } catch (...) {
            _exit(1);
        }
        _exit(0);
    }
    if (const auto status = EndOf(child, patience)) return WIFEXITED(*status) && WEXITSTATUS(*status) == 0;
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    return false;
}

} // namespace ombrin::patcher

// What the tests of the real machine share: a folder of their own and a process of their own.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace ombrin {

/// A folder that goes with everything in it.
class Scratch {
public:
    Scratch() : path((std::filesystem::temp_directory_path() / "ombrin-XXXXXX").string()) {
        if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no scratch folder");
    }
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    std::string operator/(std::string_view name) const { return path + "/" + std::string(name); }

    std::string path;
};

/// Runs the body in another process, whose exit code it gives.
inline pid_t Fork(const std::function<int()>& body) {
    std::fflush(nullptr); // or both processes write what is still buffered
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no other process");
    if (child > 0) return child;
    int code = 99; // an exception
    try {
        code = body();
    } catch (...) {
    }
    _exit(code);
}

/// The exit code, or -1 when the process was killed.
inline int ExitCode(pid_t child) {
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace ombrin

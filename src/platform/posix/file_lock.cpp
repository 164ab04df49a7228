#include "platform/posix/file_lock.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace ombrin {

namespace {

constexpr mode_t kForUserOnly = 0600;
constexpr Milliseconds kSlice{50}; // between looks, as flock knows no time limit

[[noreturn]] void Raise(const std::string& path) {
    const int problem = errno;
    const bool refused = problem == EACCES || problem == EPERM || problem == EROFS || problem == EISDIR;
    throw RuntimeError(refused ? ErrorNumber::PathAccess : ErrorNumber::DeviceIo,
                       Join("cannot lock ", path, ": ", std::strerror(problem)));
}

} // namespace

std::optional<FileLock> FileLock::Try(const std::string& native, Kind kind) {
    Descriptor file(open(native.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kForUserOnly));
    if (!file) Raise(native);
    if (flock(file.Number(), (kind == Kind::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB) == 0)
        return FileLock(std::move(file));
    if (errno != EWOULDBLOCK) Raise(native);
    return std::nullopt;
}

std::optional<FileLock> FileLock::Take(const std::string& native, Kind kind, Milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (true) {
        if (auto lock = Try(native, kind)) return lock;
        if (std::chrono::steady_clock::now() >= end) return std::nullopt;
        std::this_thread::sleep_for(kSlice);
    }
}

} // namespace ombrin

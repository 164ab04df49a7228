#include "platform/posix/client_start.h"

#include "foundation/runtime_error.h"

#include <csignal>
#include <cstdlib>
#include <unistd.h>

namespace ombrin {

HandOverFiles::HandOverFiles(const std::string& systemDirectory)
    : clients(systemDirectory + "/OmbrinExe.lock"), patcher(systemDirectory + "/OBPatch.lock"),
      state(systemDirectory + "/OBPatch.state"), program(systemDirectory + "/OBPatch.exe") {}

void ExportHome(const std::string& root) {
    if (setenv("OMBRIN_HOME", root.c_str(), 1) != 0) throw RuntimeError(ErrorNumber::OutOfMemory);
}

FileLock HoldClientFiles(const Places& places, const PosixFiles& files) {
    constexpr Milliseconds kPatience{10'000}; // files are replaced in moments
    const HandOverFiles agreed(files.Native(places.SystemDirectory()));
    if (auto lock = FileLock::Take(agreed.clients, FileLock::Kind::Shared, kPatience)) return std::move(*lock);
    throw RuntimeError(ErrorNumber::PathAccess, "an update is being put in place; start the program again in a moment");
}

void FinishHandOverFirst(const Places& places, const PosixFiles& files) {
    const HandOverFiles agreed(files.Native(places.SystemDirectory()));
    if (access(agreed.state.c_str(), F_OK) != 0) return;
    // Both locks are given back at once, as the patcher takes them itself.
    const bool nobodyElse = FileLock::Try(agreed.patcher, FileLock::Kind::Exclusive) &&
                            FileLock::Try(agreed.clients, FileLock::Kind::Exclusive);
    if (!nobodyElse) return;
    const bool hasOwn = access(agreed.program.c_str(), F_OK) == 0;
    std::string patcher = hasOwn ? agreed.program : files.Native(places.patcher);
    char* const words[] = {patcher.data(), nullptr};
    Become(patcher, words);
}

void Become(const std::string& program, char* const* words) {
    // What this process blocks is no affair of the other program.
    sigset_t none, blocked;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, &blocked);
    execv(program.c_str(), words);
    sigprocmask(SIG_SETMASK, &blocked, nullptr);
}

} // namespace ombrin

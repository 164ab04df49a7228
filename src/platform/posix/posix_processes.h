// Programs of this machine, and Windows programs by way of a runner.
#pragma once

#include "foundation/code_page.h"
#include "platform/posix/posix_desktop.h"
#include "platform/posix/wine_prefix.h"
#include "platform/processes.h"
#include "platform/waiter.h"

#include <functional>
#include <string>

namespace ombrin {

/// A program is started with an argument list, never through a shell. One that is a Windows program (by its first two
/// bytes, or by a drive letter in its path) goes to the runner, which gets the path and the arguments.
class PosixProcesses : public Processes {
public:
    /// `runner` names the program that runs Windows programs, as the settings have it at that moment.
    PosixProcesses(const CodePage& page, Waiter& waiter, std::function<std::string()> runner, const WinePrefix& prefix)
        : page(page), waiter(waiter), runner(std::move(runner)), prefix(prefix) {}

    void ChDir(std::string_view to) override;
    /// Raises 53 where a Windows program has no runner.
    TaskId Shell(const CommandLine& command) override;
    /// The windows of others are out of reach here: both raise 5.
    void AppActivate(TaskId task) override;
    void SendKeys(std::string_view keys) override;
    void Sleep(long milliseconds) override { waiter.Block(Milliseconds(milliseconds)); }

private:
    /// As the system takes it; empty, the client's own, for a Windows path that is not found by its letters: the
    /// runner, to which they are all the same, finds the program in it.
    std::string DirectoryOf(std::string_view path) const;

    const CodePage& page;
    Waiter& waiter;
    std::function<std::string()> runner;
    const WinePrefix& prefix;
    std::string directory; ///< as the system takes it; empty for the client's own
    ombrin::Programs programs;
};

} // namespace ombrin

// Starting other programs.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ombrin {

/// A command as it is told and traced, and what its first part is: the program, one argument whatever blanks it has.
struct CommandLine {
    std::string text;
    std::size_t programLength = 0; ///< characters of the text that name the program
    std::string directory{};       ///< where the program starts; empty for the current one
    std::vector<std::pair<std::string, std::string>> environment{}; ///< beside the client's own

    std::string_view Program() const { return std::string_view(text).substr(0, programLength); }
    /// What stands behind the program, cut at blanks; a part in double quotes is one argument, without them.
    std::vector<std::string> Arguments() const;
    bool Empty() const { return text.empty(); }
};

class Processes {
public:
    using TaskId = long;
    static constexpr TaskId kNone = 0;

    virtual ~Processes() = default;
    /// The drive and the directory in which programs start from now on. Raises 76 when there is no such directory.
    virtual void ChDir(std::string_view directory) = 0;
    /// Starts a program in a normal window and does not wait for it; kNone when it cannot be started.
    virtual TaskId Shell(const CommandLine& command) = 0;
    /// Brings the window of a started program to the front. Raises 5 where there is none.
    virtual void AppActivate(TaskId task) = 0;
    /// Sends keystrokes to the active window and waits until they are handled. Raises 5 where that is not possible.
    virtual void SendKeys(std::string_view keys) = 0;
    /// A blocking wait (Waiter::Block).
    virtual void Sleep(long milliseconds) = 0;
};

} // namespace ombrin

// The console's way to wait: between events it reads commands, one line each, and answers them.
#pragma once

#include "controls/modal_stack.h"
#include "platform/posix/clock.h"
#include "platform/posix/event_loop.h"
#include "platform/waiter.h"

#include <functional>
#include <optional>
#include <string>

namespace ombrin::console {

/// What runs commands. A command whose routine waits in a form is answered before it has returned.
class CommandRunner {
public:
    virtual ~CommandRunner() = default;
    /// Runs one command line and answers the reply.
    virtual std::string Run(const std::string& line) = 0;
    /// The reply of the command that is running, while its routine waits.
    virtual std::string ReplyWhileWaiting() = 0;
};

class ConsoleLoop : public Waiter {
public:
    /// Characters of a command line; a longer one ends the program.
    static constexpr std::size_t kLineLimit = std::size_t{16} * 1024 * 1024;

    /// `virtualClock` is null in real time. `waitScale` stretches real blocking waits.
    ConsoleLoop(EventLoop& loop, VirtualClock* virtualClock, double waitScale);

    void Attach(CommandRunner& other, ModalStack& forms) {
        runner = &other;
        stack = &forms;
    }

    void RunUntil(const bool& ended) override;
    void Block(Milliseconds length) override;
    void Breathe() override {} // nothing is painted

    /// Until the end is requested.
    void RunToTheEnd();

    /// From now on virtual time passes before the next command is read. False in real time.
    bool Advance(Milliseconds length);
    /// From now on arrivals are handled until nothing has come for so long, before the next command is read.
    void Settle(Milliseconds quiet);

    /// Writes one line to standard output, at once.
    void Write(const std::string& line);

private:
    using RealTime = std::chrono::steady_clock::time_point;

    bool Dispatch();
    bool PassTime();
    bool StaySettling();
    void FlushReply();
    void ReadInput();
    void TakeInput();
    bool IsCommandsTurn();
    bool HasLine() const { return input.find('\n') != std::string::npos || (inputEnded && !input.empty()); }
    void RunLine();
    void End();

    EventLoop& loop;
    VirtualClock* virtualClock;
    double waitScale;
    CommandRunner* runner = nullptr;
    ModalStack* stack = nullptr;
    std::string input;
    bool inputEnded = false;
    bool replyDue = false;            ///< the command that runs now has not been answered yet
    std::optional<std::string> reply; ///< of a command that has returned
    std::optional<TimePoint> advanceTo;
    std::optional<Milliseconds> settleFor;
    RealTime lastActivity;
    int sinceCommand = 0; ///< events handled since the last command
};

} // namespace ombrin::console

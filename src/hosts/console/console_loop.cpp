#include "hosts/console/console_loop.h"

#include "foundation/runtime_error.h"

#include <cerrno>
#include <poll.h>
#include <thread>
#include <unistd.h>

namespace ombrin::console {

namespace {

constexpr Milliseconds kLong{3'600'000};
/// Events handled in a row before a command that waits gets its turn, so that a busy server cannot lock the user out.
constexpr int kEventsPerCommand = 64;

} // namespace

ConsoleLoop::ConsoleLoop(EventLoop& loop, VirtualClock* virtualClock, double waitScale)
    : loop(loop), virtualClock(virtualClock), waitScale(waitScale) {}

void ConsoleLoop::RunUntil(const bool& ended) {
    while (!ended && !stack->Ending()) {
        if (!IsCommandsTurn() && Dispatch()) continue;
        if (PassTime() || StaySettling()) continue;
        FlushReply();
        if (HasLine())
            RunLine();
        else if (inputEnded)
            End();
        else
            ReadInput();
    }
}

/// Among events that do not come to an end.
bool ConsoleLoop::IsCommandsTurn() {
    if (advanceTo || settleFor || sinceCommand < kEventsPerCommand) return false;
    TakeInput();
    return HasLine() || reply || replyDue; // who waits for a reply gives no command
}

void ConsoleLoop::RunToTheEnd() {
    const bool never = false;
    RunUntil(never);
    FlushReply();
}

void ConsoleLoop::Block(Milliseconds length) {
    if (virtualClock == nullptr)
        std::this_thread::sleep_for(
            std::chrono::duration<double, std::milli>(static_cast<double>(length.count()) * waitScale));
}

bool ConsoleLoop::Dispatch() {
    try {
        if (!loop.DispatchOne()) return false;
    } catch (const ProgramEnding&) { // every wait on the way out looks at its own mark
    }
    lastActivity = std::chrono::steady_clock::now();
    ++sinceCommand;
    return true;
}

bool ConsoleLoop::Advance(Milliseconds length) {
    if (virtualClock == nullptr) return false;
    advanceTo = virtualClock->Now() + length;
    return true;
}

bool ConsoleLoop::PassTime() {
    if (!advanceTo) return false;
    const TimePoint next = loop.NextAlarm();
    // An alarm that is due and still here is held back, like the sockets: time goes on without it.
    if (next <= *advanceTo && next > virtualClock->Now()) {
        virtualClock->MoveTo(next);
    } else {
        virtualClock->MoveTo(*advanceTo);
        advanceTo.reset();
    }
    return true;
}

void ConsoleLoop::Settle(Milliseconds quiet) {
    settleFor = quiet;
    lastActivity = std::chrono::steady_clock::now();
}

bool ConsoleLoop::StaySettling() {
    if (!settleFor) return false;
    const auto quiet = std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now() - lastActivity);
    if (quiet >= *settleFor)
        settleFor.reset();
    else
        loop.Wait(-1, *settleFor - quiet);
    return true;
}

void ConsoleLoop::FlushReply() {
    if (reply) {
        Write(*reply);
        reply.reset();
    }
    if (replyDue) {
        replyDue = false;
        Write(runner->ReplyWhileWaiting());
    }
}

void ConsoleLoop::RunLine() {
    const std::size_t end = input.find('\n');
    const std::string line = input.substr(0, end);
    input.erase(0, end == std::string::npos ? input.size() : end + 1);
    if (line.find_first_not_of(" \t\r") == std::string::npos) return;
    sinceCommand = 0;
    replyDue = true;
    std::string answer;
    try {
        answer = runner->Run(line);
    } catch (const ProgramEnding&) {
        answer = replyDue ? runner->ReplyWhileWaiting() : std::string();
    }
    if (replyDue) reply = answer;
    replyDue = false;
}

void ConsoleLoop::ReadInput() {
    loop.Wait(STDIN_FILENO, kLong);
    TakeInput();
}

/// Without waiting for it.
void ConsoleLoop::TakeInput() {
    if (inputEnded) return;
    pollfd looked{STDIN_FILENO, POLLIN, 0};
    if (poll(&looked, 1, 0) <= 0) return;
    char buffer[65536];
    const ssize_t taken = read(STDIN_FILENO, buffer, sizeof buffer);
    if (taken > 0)
        input.append(buffer, static_cast<std::size_t>(taken));
    else if (taken == 0 || errno != EINTR)
        inputEnded = true;
    if (input.size() > kLineLimit) End();
}

void ConsoleLoop::End() { stack->RequestEnd(); }

void ConsoleLoop::Write(const std::string& line) {
    const std::string whole = line + "\n";
    std::string_view rest = whole;
    while (!rest.empty()) {
        const ssize_t written = write(STDOUT_FILENO, rest.data(), rest.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) { // nobody listens any more
            inputEnded = true;
            return;
        }
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
}

} // namespace ombrin::console

// Where a client lives, and the loop that it runs on. A process may have several; each is used by one thread alone.
#pragma once

#include <ombrin/export.h>

#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace ombrin::host {

/// What the library raises, with the number that a user reads in an error line. Every text of the library is UTF-8; one
/// that the client's code page cannot hold raises 5.
class OMBRIN_API Error : public std::runtime_error {
public:
    Error(int number, const std::string& description) : std::runtime_error(description), number(number) {}
    int Number() const { return number; }

private:
    int number;
};

struct MachineOptions {
    /// The folder that everything of the client lies in, made when missing; empty for the one that the variable
    /// OMBRIN_HOME names, else the user's own.
    std::string home{};

    // For a host with a loop of its own; without these the library sleeps and dispatches by itself. An open dialog of
    // the client waits in the first one, nested in whatever has opened it.
    std::function<void(const bool& ended)> runUntil{};             ///< runs the host's loop until `ended` is set
    std::function<void(std::chrono::milliseconds length)> block{}; ///< paints for so long, takes no input, steps not
    std::function<void()> breathe{};                               ///< in long work: paints, steps not
};

class OMBRIN_API Machine {
public:
    /// Raises 75 and 76 for a folder that cannot be used, and 5 for a code page that is not known.
    explicit Machine(MachineOptions options = {});
    ~Machine(); ///< what was made on it is gone by then
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /// Readable whenever Step has something to do; it stays the machine's.
    int Descriptor() const;
    /// Runs one event at most: an arrival, a timer, a callback. False when none was due.
    bool Step();
    /// Steps until the end is requested.
    void Run();
    /// Every open dialog closes, each wait on the stack returns, and no call waits any more.
    void RequestEnd();
    bool Ending() const;
    /// From now on SIGINT and SIGTERM do that. Before other threads are started, as it keeps both from the process.
    void EndOnSignals();

    struct OMBRIN_INSIDE Parts;
    Parts& Inside() { return *parts; } ///< for the library itself

private:
    std::unique_ptr<Parts> parts;
};

} // namespace ombrin::host

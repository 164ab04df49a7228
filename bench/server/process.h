// A program on the other end of the loopback, measured from outside.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace ombrin::bench {

class Process {
public:
    /// Waits for the line that says `…:PORT,…`; raises when that does not come.
    explicit Process(std::vector<std::string> command);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// Seconds of processor time so far, of all threads. Not from the usual count of ticks: a program that wakes by
    /// timers and works for less than a tick hides from it.
    double ProcessorTime() const;
    double MemoryKiB() const;

    std::uint16_t port = 0;
    std::uint16_t filesPort = 0; ///< of `…, files on ADDRESS:PORT`, where the line says that

private:
    std::string Text(const char* file) const;

    pid_t id = -1;
};

/// A folder for the server, with a configuration, that goes with its object.
class ScratchHome {
public:
    explicit ScratchHome(std::string_view configuration);
    ~ScratchHome();
    ScratchHome(const ScratchHome&) = delete;
    ScratchHome& operator=(const ScratchHome&) = delete;
    std::string path;
};

/// Of this process and those that it starts: each client takes one.
void RaiseDescriptorLimit();

} // namespace ombrin::bench

// Pings by ICMP where the system allows it to a plain user, else by what a TCP connection takes to be answered.
#pragma once

#include "platform/pings.h"
#include "platform/waiter.h"

#include <chrono>
#include <map>

namespace ombrin {

/// No names are looked up: a text that is not an address is answered with nothing, and so is an address for which the
/// system gives no socket. One that cannot be reached counts as one that does not answer.
class PosixPings : public Pings {
public:
    /// Of the ports where nobody listens this is the one that firewalls answer even when they drop everything else:
    /// servers that ask here who is calling would wait otherwise. No proxy stands in front of it either.
    static constexpr std::uint16_t kTcpPort = 113;
    /// Connections under way at once, of the thousand descriptors that a process may usually have. More addresses than
    /// these follow as others answer; ICMP has no such limit.
    static constexpr std::size_t kConnections = 256;
    /// An address that has not answered is not asked again so soon, and counts as silent: who comes and goes there must
    /// not hold up the others' clients each time. Shorter than the beat of the client's own pings.
    static constexpr Milliseconds kSilence{25'000};

    /// `waiter` paints while the answers are waited for.
    explicit PosixPings(Waiter& waiter) : waiter(waiter) {}
    /// Only by TCP, to this port.
    PosixPings(Waiter& waiter, std::uint16_t tcpPort) : waiter(waiter), port(tcpPort), icmp(false) {}

    std::vector<Answer> Ping(const std::vector<std::string>& addresses) override;

private:
    using TimePoint = std::chrono::steady_clock::time_point;

    std::vector<Answer> Ask(const std::vector<std::string>& addresses);

    Waiter& waiter;
    std::map<std::string, TimePoint> silentUntil;
    std::uint16_t port = kTcpPort;
    bool icmp = true;
};

} // namespace ombrin

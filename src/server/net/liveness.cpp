#include "server/net/liveness.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace ombrin::server {

namespace {

/// Data that was sent just now is unacknowledged, too; after so many sights it has been repeated several times.
constexpr int kSilentSights = 3;

void SetOption(int descriptor, int level, int option, int value) {
    // A failure leaves the system's own, slower way.
    setsockopt(descriptor, level, option, &value, sizeof value);
}

} // namespace

bool PeerWatch::Gone(const Sight& sight) {
    const bool silent = sight.unacknowledged && sight.sinceLastReply >= kLivenessInterval;
    silentSights = silent ? silentSights + 1 : 0;
    return silentSights >= kSilentSights && sight.sinceLastReply >= kSilence;
}

PeerWatch::Sight LookAt(int descriptor) {
    tcp_info info{};
    socklen_t size = sizeof info;
    if (getsockopt(descriptor, IPPROTO_TCP, TCP_INFO, &info, &size) != 0) return {false, Milliseconds(0)};
    return {info.tcpi_unacked > 0, Milliseconds(info.tcpi_last_ack_recv)};
}

void EnableKeepAlive(int descriptor) {
    constexpr int kIdleSeconds = 20;
    constexpr int kProbeSeconds = 8;
    constexpr int kProbes = 3;
    SetOption(descriptor, SOL_SOCKET, SO_KEEPALIVE, 1);
    SetOption(descriptor, IPPROTO_TCP, TCP_KEEPIDLE, kIdleSeconds);
    SetOption(descriptor, IPPROTO_TCP, TCP_KEEPINTVL, kProbeSeconds);
    SetOption(descriptor, IPPROTO_TCP, TCP_KEEPCNT, kProbes);
}

} // namespace ombrin::server

#include "platform/posix/posix_network.h"

#include "foundation/runtime_error.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/resolver.h"

#include <algorithm>
#include <cerrno>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace ombrin {

namespace {

constexpr std::size_t kReadAtOnce = std::size_t{256} * 1024; ///< bytes; what is left makes the socket ready again

ConnectFailure Why(int problem) {
    switch (problem) {
    case ECONNREFUSED:
    case ECONNRESET:
        return ConnectFailure::Refused;
    case ETIMEDOUT:
        return ConnectFailure::TimedOut;
    default:
        return ConnectFailure::Unreachable;
    }
}

[[noreturn]] void RaiseConnect(int problem) {
    if (problem == EADDRINUSE || problem == EADDRNOTAVAIL) throw RuntimeError(ErrorNumber::AddressInUse);
    if (problem == EHOSTUNREACH || problem == ENETUNREACH) throw RuntimeError(ErrorNumber::HostUnreachable);
    throw RuntimeError(ErrorNumber::DeviceIo, "the connection cannot be started");
}

/// A peer that has gone without a word is found within a minute, whether or not something is on its way to it.
void NoticeSilence(const Descriptor& connection) {
    const struct {
        int level, option, value;
    } kOptions[] = {
        {SOL_SOCKET, SO_KEEPALIVE, 1},
        {IPPROTO_TCP, TCP_KEEPIDLE, 30},  // seconds of silence before it is asked,
        {IPPROTO_TCP, TCP_KEEPINTVL, 10}, // between two questions,
        {IPPROTO_TCP, TCP_KEEPCNT, 3},
        {IPPROTO_TCP, TCP_USER_TIMEOUT, 60'000}, // and milliseconds that what was sent may stay unconfirmed
    };
    for (const auto& row : kOptions)
        setsockopt(connection.Number(), row.level, row.option, &row.value, sizeof row.value);
}

std::string AddressOfMachine() {
    ifaddrs* found = nullptr;
    std::string text = "127.0.0.1";
    if (getifaddrs(&found) != 0) return text;
    for (const ifaddrs* entry = found; entry != nullptr; entry = entry->ifa_next) {
        if (entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != AF_INET) continue;
        if ((entry->ifa_flags & IFF_LOOPBACK) != 0 || (entry->ifa_flags & IFF_UP) == 0) continue;
        SocketAddress address;
        std::copy_n(reinterpret_cast<const char*>(entry->ifa_addr), sizeof(sockaddr_in),
                    reinterpret_cast<char*>(&address.storage));
        address.length = sizeof(sockaddr_in);
        text = address.Text();
        break;
    }
    freeifaddrs(found);
    return text;
}

class PosixSocket : public Socket {
public:
    PosixSocket(EventLoop& loop, Events events) : loop(loop), events(std::move(events)), resolver(loop) {}
    ~PosixSocket() override { loop.Cancel(early); }

    SocketState State() const override { return state; }

    std::string LocalIP() const override {
        if (!descriptor || state == SocketState::Connecting) return AddressOfMachine();
        return LocalAddress().Text();
    }

    void Connect() override {
        constexpr int kLastPort = 65535;
        const int wanted = LocalPort;
        Close();
        if (RemotePort < 0 || RemotePort > kLastPort || wanted < 0 || wanted > kLastPort)
            throw RuntimeError(ErrorNumber::InvalidProcedureCall, "there is no such port");
        bindPort = wanted;
        failure = ConnectFailure::UnknownHost;
        candidates = LiteralAddresses(RemoteHost, RemotePort);
        if (!candidates.empty()) {
            const int problem = ConnectNext();
            if (problem != 0) {
                Close();
                RaiseConnect(problem);
            }
            return;
        }
        state = SocketState::Resolving;
        resolver.Start(RemoteHost, RemotePort, [this](std::vector<SocketAddress> found) {
            candidates = std::move(found);
            TryCandidates();
        });
    }

    void Close() override {
        resolver.Forget();
        loop.Cancel(early);
        watch.Drop();
        descriptor.Reset();
        candidates.clear();
        outgoing.clear();
        received.clear();
        LocalPort = 0;
        state = SocketState::Closed;
    }

    void SendData(std::string_view data) override {
        if (state != SocketState::Connected) throw RuntimeError(ErrorNumber::InvalidProcedureCall, "not connected");
        if (outgoing.size() + data.size() > kQueueLimit) throw RuntimeError(ErrorNumber::NoBufferSpace);
        outgoing.append(data);
        Flush();
    }

    std::string GetData() override { return std::exchange(received, {}); }

private:
    SocketAddress LocalAddress() const {
        SocketAddress address;
        address.length = sizeof address.storage;
        getsockname(descriptor.Number(), reinterpret_cast<sockaddr*>(&address.storage), &address.length);
        return address;
    }

    bool Bind(int family) {
        SocketAddress any;
        any.storage.ss_family = static_cast<sa_family_t>(family);
        const in_port_t port = htons(static_cast<in_port_t>(bindPort));
        if (family == AF_INET6) {
            reinterpret_cast<sockaddr_in6*>(&any.storage)->sin6_port = port;
            any.length = sizeof(sockaddr_in6);
        } else {
            reinterpret_cast<sockaddr_in*>(&any.storage)->sin_port = port;
            any.length = sizeof(sockaddr_in);
        }
        return bind(descriptor.Number(), reinterpret_cast<const sockaddr*>(&any.storage), any.length) == 0;
    }

    /// Starts on the next candidate; the system's error number when it cannot be started at all.
    int ConnectNext() {
        const SocketAddress address = candidates.front();
        candidates.erase(candidates.begin());
        watch.Drop();
        descriptor.Reset(socket(address.Family(), SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        if (!descriptor) return errno;
        const int on = 1;
        setsockopt(descriptor.Number(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        if (bindPort != 0 && !Bind(address.Family())) return errno;
        int problem = 0;
        if (connect(descriptor.Number(), reinterpret_cast<const sockaddr*>(&address.storage), address.length) != 0)
            problem = errno;
        // A refusal that is known at once, as on this machine, comes as an event like any other.
        if (problem == ECONNREFUSED || problem == ETIMEDOUT) {
            const ConnectFailure why = Why(problem);
            state = SocketState::Connecting;
            early = loop.At(loop.Now(), [this, why] { Missed(why); });
            return 0;
        }
        if (problem != 0 && problem != EINPROGRESS) return problem;
        state = SocketState::Connecting;
        LocalPort = LocalAddress().Port();
        watch = loop.OnReady(descriptor.Number(), EventLoop::Interest::Write, [this] { Ready(); });
        return 0;
    }

    void TryCandidates() {
        while (!candidates.empty()) {
            const int problem = ConnectNext();
            if (problem == 0) return;
            failure = Why(problem);
        }
        Close();
        state = SocketState::Failed;
        events.failed(failure);
    }

    void Missed(ConnectFailure why) {
        failure = why;
        watch.Drop();
        TryCandidates();
    }

    void Ready() {
        if (state == SocketState::Connecting) {
            int problem = 0;
            socklen_t length = sizeof problem;
            getsockopt(descriptor.Number(), SOL_SOCKET, SO_ERROR, &problem, &length);
            if (problem != 0) return Missed(Why(problem));
            state = SocketState::Connected;
            candidates.clear();
            NoticeSilence(descriptor);
            LocalPort = LocalAddress().Port();
            watch.SetInterest(EventLoop::Interest::Read);
            events.connected();
            return;
        }
        if (!outgoing.empty()) Flush();
        if (descriptor) Receive();
    }

    void Receive() {
        const std::size_t before = received.size();
        received.resize(before + kReadAtOnce);
        const ssize_t taken = recv(descriptor.Number(), received.data() + before, kReadAtOnce, 0);
        const int problem = errno;
        received.resize(before + static_cast<std::size_t>(std::max<ssize_t>(taken, 0)));
        if (taken > 0) {
            events.dataArrival(received.size());
        } else if (taken == 0 || (problem != EAGAIN && problem != EINTR)) {
            watch.Drop();
            state = SocketState::ClosedByPeer;
            events.closed();
        }
    }

    void Flush() {
        while (!outgoing.empty()) {
            const ssize_t sent = send(descriptor.Number(), outgoing.data(), outgoing.size(), MSG_NOSIGNAL);
            if (sent < 0) {
                if (errno == EINTR) continue;
                if (errno != EAGAIN) outgoing.clear(); // the peer is gone; reading will tell
                break;
            }
            outgoing.erase(0, static_cast<std::size_t>(sent));
        }
        watch.SetInterest(outgoing.empty() ? EventLoop::Interest::Read : EventLoop::Interest::ReadWrite);
    }

    EventLoop& loop;
    Events events;
    Resolver resolver;
    Descriptor descriptor;
    EventLoop::Watch watch;
    Alarms::Id early = Alarms::kNone; ///< tells of a refusal that was known at once
    SocketState state = SocketState::Closed;
    std::vector<SocketAddress> candidates; ///< not yet tried
    int bindPort = 0;                      ///< the local port that was asked for, 0 for any
    ConnectFailure failure = ConnectFailure::None;
    std::string outgoing, received;
};

} // namespace

std::unique_ptr<Socket> PosixNetwork::MakeSocket(const std::string&, Socket::Events events) {
    return std::make_unique<PosixSocket>(loop, std::move(events));
}

} // namespace ombrin

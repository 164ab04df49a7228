#include "platform/posix/posix_pings.h"

#include "platform/posix/descriptor.h"
#include "platform/posix/resolver.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <netinet/icmp6.h>
#include <netinet/ip_icmp.h>
#include <poll.h>
#include <random>
#include <sys/socket.h>

namespace ombrin {

namespace {

using Steady = std::chrono::steady_clock;

constexpr Milliseconds kTurn{5}; ///< between two looks at the waiter
constexpr int kBurst = 64;       ///< sent in a turn, so that the answers find room in the socket's buffer

/// Request and reply of both versions of ICMP. The kernel fills in the checksum and its own id.
struct Echo {
    std::uint8_t type = 0, code = 0;
    std::uint16_t checksum = 0, id = 0, sequence = 0;
    std::uint64_t index = 0; ///< of the request; comes back as it was sent
    std::uint64_t nonce = 0; ///< nobody but the one asked can know it
};
static_assert(sizeof(Echo) == 24);

struct Request {
    std::size_t row;
    SocketAddress to;
    std::uint64_t nonce;
    Steady::time_point sent;
    bool underway = false;
    Descriptor connection; ///< where the request goes by TCP
};

/// Strictly: other readers take "127.1" and "1" for addresses as well.
std::optional<SocketAddress> AddressOf(const std::string& text, std::uint16_t port) {
    SocketAddress address;
    auto* four = reinterpret_cast<sockaddr_in*>(&address.storage);
    auto* six = reinterpret_cast<sockaddr_in6*>(&address.storage);
    if (text.find('\0') != std::string::npos) return std::nullopt;
    if (inet_pton(AF_INET, text.c_str(), &four->sin_addr) == 1) {
        four->sin_family = AF_INET;
        four->sin_port = htons(port);
        address.length = sizeof *four;
    } else if (inet_pton(AF_INET6, text.c_str(), &six->sin6_addr) == 1) {
        six->sin6_family = AF_INET6;
        six->sin6_port = htons(port);
        address.length = sizeof *six;
    } else {
        return std::nullopt;
    }
    return address;
}

/// A socket for echoes to any number of addresses; none where the system keeps ICMP to itself.
Descriptor EchoSocket(int family, int protocol) {
    Descriptor made(socket(family, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, protocol));
    const int on = 1;
    setsockopt(made.Number(), SOL_SOCKET, SO_TIMESTAMPNS, &on, sizeof on);
    return made;
}

/// How long ago the kernel took a datagram in: painting since then is no part of the round trip.
Steady::duration Age(msghdr& message) {
    const cmsghdr* control = CMSG_FIRSTHDR(&message);
    if (control == nullptr || control->cmsg_level != SOL_SOCKET || control->cmsg_type != SCM_TIMESTAMPNS) return {};
    timespec stamp{};
    std::memcpy(&stamp, CMSG_DATA(control), sizeof stamp);
    const auto taken = std::chrono::seconds(stamp.tv_sec) + std::chrono::nanoseconds(stamp.tv_nsec);
    return std::chrono::duration_cast<Steady::duration>(std::chrono::system_clock::now().time_since_epoch() - taken);
}

/// All pings of one call. An answer is nothing until its request is sent, and then the limit until it has come.
class Round {
public:
    Round(const std::vector<std::string>& addresses, bool icmp, std::uint16_t port) : answers(addresses.size()) {
        std::random_device random;
        for (std::size_t row = 0; row < addresses.size(); ++row)
            if (const auto to = AddressOf(addresses[row], port))
                requests.push_back({row, *to, (std::uint64_t{random()} << 32) | random(), {}, false, {}});
        if (!icmp || requests.empty()) return;
        echoes4 = EchoSocket(AF_INET, IPPROTO_ICMP);
        echoes6 = EchoSocket(AF_INET6, IPPROTO_ICMPV6);
    }

    bool IsOver() const { return next == requests.size() && underway == 0; }
    const std::vector<Pings::Answer>& Answers() const { return answers; }

    void SendSome() {
        for (int i = 0; i < kBurst && next < requests.size() && Send(next); ++i) ++next;
    }

    void Receive(Milliseconds wait) {
        std::vector<pollfd> looked{{echoes4.Number(), POLLIN, 0}, {echoes6.Number(), POLLIN, 0}};
        std::vector<Request*> connecting;
        for (Request& request : requests) {
            if (!request.underway || !request.connection) continue;
            looked.push_back({request.connection.Number(), POLLOUT, 0});
            connecting.push_back(&request);
        }
        if (poll(looked.data(), looked.size(), static_cast<int>(wait.count())) <= 0) return;
        const auto now = Steady::now();
        for (std::size_t i = 0; i < connecting.size(); ++i)
            if (looked[i + 2].revents != 0) TakeConnection(*connecting[i], now);
        if (looked[0].revents != 0) TakeEchoes(echoes4, ICMP_ECHOREPLY);
        if (looked[1].revents != 0) TakeEchoes(echoes6, ICMP6_ECHO_REPLY);
    }

private:
    /// False when there is no room for it at the moment.
    bool Send(std::size_t index) {
        Request& request = requests[index];
        const Descriptor& echoes = request.to.Family() == AF_INET ? echoes4 : echoes6;
        return echoes ? SendEcho(echoes, index) : Connect(request);
    }

    bool SendEcho(const Descriptor& echoes, std::size_t index) {
        Request& request = requests[index];
        Echo echo;
        echo.type = request.to.Family() == AF_INET ? ICMP_ECHO : ICMP6_ECHO_REQUEST;
        echo.sequence = htons(static_cast<std::uint16_t>(index));
        echo.index = index;
        echo.nonce = request.nonce;
        request.sent = Steady::now();
        const ssize_t sent = sendto(echoes.Number(), &echo, sizeof echo, 0,
                                    reinterpret_cast<const sockaddr*>(&request.to.storage), request.to.length);
        if (sent < 0 && (errno == EAGAIN || errno == ENOBUFS)) return false;
        Begin(request);
        if (sent < 0) End(request); // no way there
        return true;
    }

    bool Connect(Request& request) {
        if (connections == PosixPings::kConnections) return false;
        request.connection.Reset(socket(request.to.Family(), SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        if (!request.connection) return connections == 0 || (errno != EMFILE && errno != ENFILE);
        ++connections;
        const linger forget{1, 0}; // nothing is left over from a connection that nobody wants
        setsockopt(request.connection.Number(), SOL_SOCKET, SO_LINGER, &forget, sizeof forget);
        request.sent = Steady::now();
        const int status = connect(request.connection.Number(), reinterpret_cast<const sockaddr*>(&request.to.storage),
                                   request.to.length);
        const int problem = status == 0 ? 0 : errno;
        Begin(request);
        if (problem != EINPROGRESS) EndConnection(request, problem, Steady::now());
        return true;
    }

    void TakeConnection(Request& request, Steady::time_point now) {
        int problem = 0;
        socklen_t length = sizeof problem;
        getsockopt(request.connection.Number(), SOL_SOCKET, SO_ERROR, &problem, &length);
        EndConnection(request, problem, now);
    }

    /// A refusal is an answer like any other; what a router on the way says is none.
    void EndConnection(Request& request, int problem, Steady::time_point now) {
        if (problem == 0 || problem == ECONNREFUSED) Answered(request, now - request.sent);
        End(request);
        request.connection.Reset();
        --connections;
    }

    void TakeEchoes(const Descriptor& echoes, int reply) {
        while (true) {
            Echo echo;
            iovec data{&echo, sizeof echo};
            alignas(cmsghdr) std::array<char, 128> control{};
            msghdr message{};
            message.msg_iov = &data;
            message.msg_iovlen = 1;
            message.msg_control = control.data();
            message.msg_controllen = control.size();
            const ssize_t taken = recvmsg(echoes.Number(), &message, 0);
            if (taken < 0) return;
            if (taken == sizeof echo && echo.type == reply) TakeEcho(echo, Age(message));
        }
    }

    /// Drops what answers no request of this round, and what answers one again.
    void TakeEcho(const Echo& echo, Steady::duration age) {
        if (echo.index >= requests.size() || echo.sequence != htons(static_cast<std::uint16_t>(echo.index))) return;
        Request& request = requests[echo.index];
        if (!request.underway || echo.nonce != request.nonce) return;
        const auto took = Steady::now() - request.sent;
        const bool isAgeSound = age >= Steady::duration::zero() && age <= took; // the wall clock may have been set
        Answered(request, isAgeSound ? took - age : took);
        End(request);
    }

    void Begin(Request& request) {
        request.underway = true;
        ++underway;
        answers[request.row] = static_cast<std::int32_t>(Pings::kTimeLimit.count());
    }

    void End(Request& request) {
        request.underway = false;
        --underway;
    }

    void Answered(const Request& request, Steady::duration took) {
        const auto rounded = std::min(std::chrono::round<Milliseconds>(took), Pings::kTimeLimit);
        answers[request.row] = static_cast<std::int32_t>(rounded.count());
    }

    std::vector<Pings::Answer> answers;
    std::vector<Request> requests;
    std::size_t next = 0; ///< the first request that is not sent
    std::size_t underway = 0, connections = 0;
    Descriptor echoes4, echoes6;
};

} // namespace

std::vector<Pings::Answer> PosixPings::Ping(const std::vector<std::string>& addresses) {
    const auto begun = Steady::now();
    std::erase_if(silentUntil, [&](const auto& silent) { return silent.second <= begun; });
    std::vector<Answer> answers(addresses.size(), static_cast<std::int32_t>(kTimeLimit.count()));
    std::vector<std::string> asked;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        if (silentUntil.contains(addresses[i])) continue;
        asked.push_back(addresses[i]);
        places.push_back(i);
    }
    const std::vector<Answer> heard = Ask(asked);
    for (std::size_t i = 0; i < asked.size(); ++i) {
        answers[places[i]] = heard[i];
        if (heard[i] == static_cast<std::int32_t>(kTimeLimit.count())) silentUntil[asked[i]] = begun + kSilence;
    }
    return answers;
}

std::vector<Pings::Answer> PosixPings::Ask(const std::vector<std::string>& addresses) {
    Round round(addresses, icmp, port);
    waiter.Breathe(); // what is to be painted anyway is painted before the time counts
    const auto end = Steady::now() + kTimeLimit;
    round.SendSome();
    while (!round.IsOver()) {
        const auto left = std::chrono::ceil<Milliseconds>(end - Steady::now());
        round.Receive(std::clamp(left, Milliseconds(0), kTurn));
        if (left <= Milliseconds(0)) break;
        waiter.Breathe();
        round.SendSome();
    }
    return round.Answers();
}

} // namespace ombrin

#include "platform/posix/posix_network.h"

#include "../foundation/raised.h"
#include "platform/posix/clock.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/resolver.h"

#include <algorithm>
#include <atomic>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <thread>

namespace ombrin {
namespace {

using testing::ElementsAre;
using namespace std::chrono_literals;

/// The server's side: a port of the loopback, chosen by the system, and plain blocking sockets.
class Listener {
public:
    explicit Listener(const std::string& host) : host(host) {
        const SocketAddress any = LiteralAddresses(host, 0).at(0);
        descriptor.Reset(socket(any.Family(), SOCK_STREAM | SOCK_CLOEXEC, 0));
        bound = bind(descriptor.Number(), reinterpret_cast<const sockaddr*>(&any.storage), any.length) == 0;
    }
    Listener& Listens() {
        EXPECT_EQ(listen(descriptor.Number(), 8), 0);
        return *this;
    }
    int Port() const {
        SocketAddress own;
        own.length = sizeof own.storage;
        EXPECT_EQ(getsockname(descriptor.Number(), reinterpret_cast<sockaddr*>(&own.storage), &own.length), 0);
        return own.Port();
    }
    Descriptor Accept() const {
        Descriptor peer(accept4(descriptor.Number(), nullptr, nullptr, SOCK_CLOEXEC));
        const timeval patience{20, 0}; // a fault must not hang the tests
        setsockopt(peer.Number(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        setsockopt(peer.Number(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
        return peer;
    }
    std::string host;
    bool bound = false;

private:
    Descriptor descriptor;
};

void PeerSends(const Descriptor& peer, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = send(peer.Number(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

/// All up to the end of the connection, or so many bytes.
std::string PeerReads(const Descriptor& peer, std::size_t limit = std::string::npos) {
    std::string bytes;
    char part[65536];
    while (bytes.size() < limit) {
        const ssize_t taken = recv(peer.Number(), part, std::min(sizeof part, limit - bytes.size()), 0);
        if (taken <= 0) break;
        bytes.append(part, static_cast<std::size_t>(taken));
    }
    return bytes;
}

/// A socket that writes its events down.
struct Client {
    explicit Client(EventLoop& loop) {
        socket = PosixNetwork(loop).MakeSocket(
            "Winsock", {[this] { Happened("connected"); },
                        [this](std::size_t bytes) {
                            waiting = bytes;
                            if (!takes) return;
                            arrived += socket->GetData();
                            EXPECT_LE(bytes, arrived.size());
                            if (!Says("data")) events.push_back("data");
                            if (then) then("data");
                        },
                        [this] { Happened("closed"); },
                        [this](ConnectFailure why) { Happened("failed: " + std::string(ToText(why))); }});
    }
    void Happened(const std::string& event) {
        events.push_back(event);
        if (then) then(event);
    }
    bool Says(std::string_view last) const { return !events.empty() && events.back() == last; }
    void Connect(const std::string& host, int port) {
        socket->RemoteHost = host;
        socket->RemotePort = port;
        socket->Connect();
    }

    std::unique_ptr<Socket> socket;
    std::vector<std::string> events; ///< arrivals in a row count once
    std::string arrived;
    bool takes = true;
    std::size_t waiting = 0;                      ///< bytes, at the last arrival
    std::function<void(const std::string&)> then; ///< what the owner does inside an event
};

class NetworkTest : public testing::Test {
protected:
    /// Dispatches until the condition holds, twenty seconds at most.
    template <class Condition>
    bool Until(Condition&& holds) {
        const TimePoint end = loop.Now() + 20s;
        while (!holds()) {
            if (loop.Now() > end) return false;
            if (!loop.DispatchOne()) loop.Wait(-1, 100ms);
        }
        return true;
    }
    bool UntilSaid(std::string_view event) {
        return Until([&] { return client.Says(event); });
    }
    Descriptor Connected(Client& who) {
        who.Connect(listener.host, listener.Port());
        EXPECT_TRUE(Until([&] { return who.Says("connected"); }));
        return listener.Accept();
    }
    /// Nothing is left to do, and nothing comes after a moment either.
    void ExpectQuiet() {
        for (int i = 0; loop.DispatchOne(); ++i) ASSERT_LT(i, 20) << "the loop spins";
        loop.Wait(-1, 20ms);
        EXPECT_FALSE(loop.DispatchOne());
    }

    SystemClock clock;
    EventLoop loop{clock};
    Listener listener{"127.0.0.1"};
    Client client{loop};
};

TEST_F(NetworkTest, DataGoesBothWaysOverEitherFamilyAndByName) {
    for (const auto& [address, name] :
         {std::pair{"127.0.0.1", "127.0.0.1"}, {"127.0.0.1", "localhost"}, {"::1", "::1"}}) {
        Listener server(address);
        if (!server.bound) continue; // a machine without IPv6
        server.Listens();
        Client user(loop);
        EXPECT_EQ(user.socket->State(), SocketState::Closed);
        user.Connect(name, server.Port());
        EXPECT_FALSE(user.socket->IsConnected()) << "events come from the loop, never from inside the call";
        EXPECT_TRUE(user.events.empty());
        ASSERT_TRUE(Until([&] { return !user.events.empty(); }));
        EXPECT_THAT(user.events, ElementsAre("connected")) << name;
        EXPECT_TRUE(user.socket->IsConnected());
        EXPECT_EQ(user.socket->LocalIP(), address);
        EXPECT_GT(user.socket->LocalPort, 0);
        const Descriptor peer = server.Accept();
        user.socket->SendData("Ombrin:28::~");
        EXPECT_EQ(PeerReads(peer, 12), "Ombrin:28::~");
        PeerSends(peer, "38:~");
        EXPECT_TRUE(Until([&] { return user.arrived == "38:~"; }));
        EXPECT_EQ(user.socket->GetData(), "");
    }
}

TEST_F(NetworkTest, ARefusalIsAnEventAndTheSameSocketMayTryAgain) {
    const int port = listener.Port(); // bound, so that nobody else has it, but not listening
    EXPECT_EQ(Raised([&] { client.Connect("127.0.0.1", port); }), 0);
    EXPECT_TRUE(client.events.empty());
    ASSERT_TRUE(UntilSaid("failed: refused"));
    EXPECT_EQ(client.socket->State(), SocketState::Failed);
    ExpectQuiet();
    client.then = [&](const std::string& event) { // as the client does under its dialog
        if (event == "failed: refused") client.socket->Connect();
    };
    client.socket->Connect();
    ASSERT_TRUE(Until([&] { return client.events.size() >= 3; }));
    listener.Listens();
    ASSERT_TRUE(UntilSaid("connected"));
    const Descriptor peer = listener.Accept();
    client.socket->SendData("x");
    EXPECT_EQ(PeerReads(peer, 1), "x");
}

TEST_F(NetworkTest, AnUnknownHostFailsAndTheLoopRunsMeanwhile) {
    client.Connect("no..such.host.invalid", 80);
    EXPECT_EQ(client.socket->State(), SocketState::Resolving);
    EXPECT_EQ(client.socket->LocalPort, 0);
    SocketState seen = SocketState::Closed;
    loop.At(loop.Now(), [&] { seen = client.socket->State(); });
    EXPECT_TRUE(loop.DispatchOne());
    EXPECT_EQ(seen, SocketState::Resolving);
    ASSERT_TRUE(UntilSaid("failed: unknown host"));
    EXPECT_EQ(client.socket->State(), SocketState::Failed);
    ExpectQuiet();
}

TEST_F(NetworkTest, WhatIsKnownAtOnceIsRaised) {
    listener.Listens();
    Listener other("127.0.0.1");
    other.Listens();
    const struct {
        const char *what, *host;
        int port, local, error;
    } kCases[] = {
        {"a port beyond the last", "127.0.0.1", listener.Port() + 65536, 0, 5},
        {"a port below the first", "127.0.0.1", -1, 0, 5},
        {"a local port that is taken", "127.0.0.1", listener.Port(), other.Port(), 10048},
        {"no TCP to a broadcast", "255.255.255.255", listener.Port(), 0, 10065},
    };
    for (const auto& row : kCases) {
        client.socket->LocalPort = row.local;
        EXPECT_EQ(Raised([&] { client.Connect(row.host, row.port); }), row.error) << row.what;
        EXPECT_EQ(client.socket->State(), SocketState::Closed) << row.what;
        EXPECT_EQ(Raised([&] { client.socket->SendData("x"); }), 5) << row.what;
    }
    ExpectQuiet();
    EXPECT_TRUE(client.events.empty());
    EXPECT_FALSE(LiteralAddresses(client.socket->LocalIP(), 0).empty()) << "without a connection one of the machine";
    const Descriptor peer = Connected(client);
    EXPECT_NE(client.socket->LocalPort, other.Port());
}

TEST_F(NetworkTest, EverythingThePeerSentArrivesBeforeItsClosing) {
    listener.Listens();
    Descriptor peer = Connected(client);
    std::string sent(5 * 1024 * 1024, ' ');
    for (std::size_t i = 0; i < sent.size(); ++i) sent[i] = static_cast<char>(i * 31 + i / 4096);
    std::thread server([&] {
        PeerSends(peer, sent);
        peer.Reset();
    });
    EXPECT_TRUE(UntilSaid("closed"));
    server.join();
    EXPECT_THAT(client.events, ElementsAre("connected", "data", "closed"));
    EXPECT_TRUE(client.arrived == sent) << client.arrived.size() << " bytes";
    EXPECT_EQ(client.socket->State(), SocketState::ClosedByPeer);
    ExpectQuiet();
    client.socket->Close();
    EXPECT_EQ(client.socket->State(), SocketState::Closed);
    EXPECT_EQ(client.socket->LocalPort, 0);
}

TEST_F(NetworkTest, APeerThatVanishesClosesTheConnectionOnce) {
    listener.Listens();
    Descriptor peer = Connected(client);
    const linger reset{1, 0};
    setsockopt(peer.Number(), SOL_SOCKET, SO_LINGER, &reset, sizeof reset);
    peer.Reset();
    client.socket->SendData("into the void"); // must not end the program by a signal
    client.socket->SendData("and again");
    ASSERT_TRUE(UntilSaid("closed"));
    EXPECT_THAT(client.events, ElementsAre("connected", "closed"));
    EXPECT_EQ(Raised([&] { client.socket->SendData("x"); }), 5);
    ExpectQuiet();
}

TEST_F(NetworkTest, WhatIsNotTakenWaitsAndGoesWithTheConnection) {
    listener.Listens();
    client.takes = false;
    const Descriptor peer = Connected(client);
    const auto& socket = client.socket;
    for (const std::size_t size : {2U, 4U}) {
        PeerSends(peer, "ab");
        EXPECT_TRUE(Until([&] { return client.waiting == size; }));
    }
    EXPECT_EQ(socket->GetData(), "abab");
    PeerSends(peer, "end");
    EXPECT_TRUE(Until([&] { return client.waiting == 3; }));
    const std::string part(256 * 1024, 'p');
    while (Raised([&] { socket->SendData(part); }) == 0) {
    }
    socket->Close();
    socket->Connect();
    const Descriptor next = listener.Accept();
    EXPECT_TRUE(Until([&] { return socket->IsConnected(); }));
    socket->SendData("new");
    EXPECT_EQ(PeerReads(next, 3), "new") << "what was queued for the old connection";
    EXPECT_EQ(socket->GetData(), "") << "what had come from the old connection";
}

TEST_F(NetworkTest, APeerThatDoesNotReadCostsABoundedQueueAndNoByte) {
    listener.Listens();
    const Descriptor peer = Connected(client);
    const std::string part(256 * 1024, 'p');
    std::size_t taken = 0;
    while (Raised([&] { client.socket->SendData(part); }) == 0) {
        taken += part.size();
        ASSERT_LT(taken, std::size_t{256} * 1024 * 1024) << "there is no limit";
    }
    EXPECT_GE(taken, Socket::kQueueLimit);
    EXPECT_EQ(Raised([&] { client.socket->SendData(part); }), 10055);
    EXPECT_TRUE(client.socket->IsConnected());
    std::string read;
    std::atomic<bool> done = false;
    std::thread server([&] {
        read = PeerReads(peer, taken + 4);
        done = true;
    });
    EXPECT_TRUE(Until([&] { return Raised([&] { client.socket->SendData("last"); }) == 0; })) << "room comes again";
    EXPECT_TRUE(Until([&] { return done.load(); }));
    server.join();
    EXPECT_EQ(read.size(), taken + 4);
    EXPECT_TRUE(read.ends_with("plast")) << "a text that was refused must not have been sent in part";
    ExpectQuiet();
}

TEST_F(NetworkTest, ASocketMayBeClosedInsideAnyOfItsEvents) {
    listener.Listens();
    for (const std::string event : {"connected", "data", "closed"}) {
        Client user(loop);
        user.then = [&](const std::string& what) {
            if (what == event) user.socket->Close();
        };
        user.Connect("127.0.0.1", listener.Port());
        ASSERT_TRUE(Until([&] { return user.Says("connected"); }));
        Descriptor peer = listener.Accept();
        PeerSends(peer, "0:a;~");
        if (event == "closed") peer.Reset();
        EXPECT_TRUE(Until([&] { return user.Says(event); }));
        EXPECT_EQ(PeerReads(peer), "") << "the peer sees the end";
        ExpectQuiet();
        EXPECT_EQ(user.events.back(), event);
        EXPECT_EQ(user.socket->State(), SocketState::Closed);
    }
}

TEST_F(NetworkTest, ASocketConnectsAnewInsideItsClosing) {
    listener.Listens();
    client.then = [&](const std::string& event) {
        if (event != "closed") return;
        client.socket->LocalPort = 0;
        client.socket->Connect();
    };
    Connected(client).Reset();
    ASSERT_TRUE(Until([&] { return client.events.size() == 3; }));
    EXPECT_THAT(client.events, ElementsAre("connected", "closed", "connected"));
    const Descriptor peer = listener.Accept();
    PeerSends(peer, "again");
    EXPECT_TRUE(Until([&] { return client.arrived == "again"; }));
}

TEST_F(NetworkTest, NoEventComesAfterClosingAlsoNoneThatWasDue) {
    listener.Listens();
    Client other(loop);
    const Descriptor peer = Connected(client), otherPeer = Connected(other);
    client.then = [&](const std::string&) { other.socket->Close(); };
    other.then = [&](const std::string&) { client.socket->Close(); };
    PeerSends(peer, "x");
    PeerSends(otherPeer, "x");
    ASSERT_TRUE(Until([&] { return client.Says("data") || other.Says("data"); }));
    ExpectQuiet();
    EXPECT_EQ(client.events.size() + other.events.size(), 3U) << "the one that came first has closed the other";
}

TEST_F(NetworkTest, ASocketMayCloseOrGoWhileItsConnectionComes) {
    listener.Listens();
    const Listener silent("127.0.0.1");
    int events = 0;
    for (const auto& [host, port] : {std::pair{"localhost", listener.Port()},
                                     {"no..such.host.invalid", 80},
                                     {"127.0.0.1", listener.Port()},
                                     {"127.0.0.1", silent.Port()}}) {
        Client closes(loop), goes(loop);
        closes.then = goes.then = [&](const std::string&) { ++events; };
        closes.Connect(host, port);
        goes.Connect(host, port);
        closes.socket->Close();
        goes.socket.reset();
        ExpectQuiet();
    }
    EXPECT_EQ(events, 0);
}

} // namespace
} // namespace ombrin

#include "load.h"

#include "session/wire/client_message.h"
#include "session/wire/server_message.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <stdexcept>
#include <string_view>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace ombrin::bench {

namespace {

using namespace std::chrono_literals;
using Now = std::chrono::steady_clock;

constexpr std::size_t kLineSize = 40;   ///< characters of what is said: a short sentence
constexpr std::size_t kWatchEvery = 50; ///< of so many clients one measures the delay of his own lines
constexpr std::size_t kAtOnce = 50;     ///< logons under way
constexpr auto kLongestLogon = 40s;

} // namespace

std::string Load::Name(std::size_t client) {
    std::string number = std::to_string(client);
    return "u" + std::string(4 - std::min<std::size_t>(number.size(), 4), '0') + number;
}
std::string Load::Lobby(std::size_t number) { return "Lobby " + std::string(1, static_cast<char>('A' + number)); }
std::string Load::LineIn(std::size_t client, std::size_t lobbySize) {
    return client_message::LobbyLine(Name(client) + ";" + Lobby(client / lobbySize) + ";127.0.0.1",
                                     std::string(kLineSize, 'x'));
}
std::string Load::LineOut(std::size_t client) {
    return server_message::LobbyLine(Name(client), std::string(kLineSize, 'x'));
}

Load::Load(const Plan& plan) : plan(plan), poll(epoll_create1(EPOLL_CLOEXEC)), clients(plan.clients) {
    for (std::size_t i = 0; i < clients.size(); i += kWatchEvery) clients[i].echo = "1:" + Name(i) + ":";
}

Load::~Load() {
    for (const Client& client : clients)
        if (client.socket >= 0) close(client.socket);
    close(poll);
}

void Load::LogOn() {
    const Moment last = Now::now() + kLongestLogon;
    std::size_t begun = 0;
    while (in < clients.size()) {
        for (; begun < clients.size() && begun < in + kAtOnce; ++begun) {
            Connect(begun);
            if (plan.logOn)
                Send(clients[begun], client_message::Logon(Name(begun) + ";temp;127.0.0.1", "pw"));
            else
                clients[begun].state = State::In, ++in;
        }
        ReadAll(10ms);
        if (Now::now() > last) throw std::runtime_error("not everybody could log on");
    }
}

Load::Outcome Load::Talk(std::chrono::milliseconds time) {
    outcome = {};
    const Moment start = Now::now();
    const auto apart = std::chrono::nanoseconds(1s) / clients.size();
    for (std::size_t turn = 0; Now::now() - start < time;) {
        for (; start + turn * apart <= Now::now(); ++turn) {
            const std::size_t speaker = Speaker(turn);
            clients[speaker].said = Now::now();
            Send(clients[speaker], LineIn(speaker, plan.lobbySize));
            ++outcome.linesSent;
        }
        ReadAll(1ms);
    }
    std::sort(outcome.delays.begin(), outcome.delays.end());
    return outcome;
}

/// The lobbies take turns, so that lines come as evenly to each as to all.
std::size_t Load::Speaker(std::size_t turn) const {
    const std::size_t lobbies = clients.size() / plan.lobbySize;
    return turn % lobbies * plan.lobbySize + turn / lobbies % plan.lobbySize;
}

void Load::Connect(std::size_t index) {
    Client& client = clients[index];
    client.socket = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(plan.port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    epoll_event event{EPOLLIN, {.u64 = index}};
    if (connect(client.socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        epoll_ctl(poll, EPOLL_CTL_ADD, client.socket, &event) != 0)
        throw std::runtime_error("a client cannot connect");
}

void Load::Send(Client& client, const std::string& bytes) const {
    if (send(client.socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(bytes.size()))
        throw std::runtime_error("a client was thrown out");
}

void Load::ReadAll(std::chrono::milliseconds wait) {
    std::array<epoll_event, 512> events{};
    const int count = epoll_wait(poll, events.data(), events.size(), static_cast<int>(wait.count()));
    for (int i = 0; i < count; ++i) Read(events.at(static_cast<std::size_t>(i)).data.u64);
}

void Load::Read(std::size_t index) {
    static std::array<char, 262'144> bytes;
    Client& client = clients[index];
    const ssize_t size = recv(client.socket, bytes.data(), bytes.size(), 0);
    if (size <= 0) throw std::runtime_error("a client was thrown out");
    const std::string_view read(bytes.data(), static_cast<std::size_t>(size));
    if (client.state != State::In) {
        client.tail += read;
        return Advance(index);
    }
    outcome.bytesRead += read.size();
    if (client.echo.empty() || read.find(client.echo) == std::string_view::npos) return;
    outcome.delays.push_back(std::chrono::duration<double, std::milli>(Now::now() - client.said).count());
}

void Load::Advance(std::size_t index) {
    Client& client = clients[index];
    if (client.state == State::LoggingOn && client.tail.find("~22:") != std::string::npos) {
        client.state = State::Entering;
        Send(client, client_message::EnterLobby(Name(index) + ";" + Lobby(index / plan.lobbySize) + ";127.0.0.1", ""));
    }
    if (client.state == State::Entering && client.tail.find("48:" + Name(index)) != std::string::npos) {
        client.state = State::In;
        client.tail = {};
        ++in;
    }
}

} // namespace ombrin::bench

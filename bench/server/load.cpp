#include "load.h"

#include "session/wire/client_message.h"

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
constexpr auto kLongestLogon = 120s;
constexpr std::size_t kMovesApart = 20; ///< moves of others between two steps of a move

} // namespace

std::string Load::Name(std::size_t client) {
    std::string number = std::to_string(client);
    return "u" + std::string(4 - std::min<std::size_t>(number.size(), 4), '0') + number;
}
std::string Load::Lobby(std::size_t number) { return "Lobby " + std::string(1, static_cast<char>('A' + number)); }
std::string Load::Room(std::size_t number) { return "Room " + std::to_string(1'000 + number); }
std::string Load::Record(std::size_t index) const {
    return Name(index) + ";" + Lobby(index / plan.lobbySize) + ";127.0.0.1";
}

Load::Load(const Plan& plan) : plan(plan), poll(epoll_create1(EPOLL_CLOEXEC)), clients(plan.clients) {
    for (std::size_t i = 0; i < clients.size(); i += kWatchEvery)
        clients[i].echo = (plan.roomSize == 0 ? "1:" : "4:") + Name(i) + ":";
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
    if (plan.logOn && plan.roomSize > 0) FillRooms();
}

void Load::FillRooms() {
    for (const bool opening : {true, false}) {
        for (std::size_t i = 0; i < clients.size(); ++i) {
            if (OpensRoom(i) != opening) continue;
            clients[i].state = State::Asking;
            --in;
            Send(clients[i], opening ? client_message::CreateRoom(Record(i), RoomOf(i), "32", "0", "", "N")
                                     : client_message::EnterRoom(Record(i), RoomOf(i), "N"));
        }
        AwaitAnswers();
    }
}

void Load::AwaitAnswers() {
    const Moment last = Now::now() + kLongestLogon;
    while (in < clients.size()) {
        ReadAll(10ms);
        if (Now::now() > last) throw std::runtime_error("not everybody could enter a room");
    }
}

Load::Outcome Load::Talk(std::chrono::milliseconds time) {
    outcome = {};
    const Moment start = Now::now();
    const auto apart = std::chrono::nanoseconds(1s) / clients.size();
    const auto betweenMoves = std::chrono::nanoseconds(1s) / std::max(plan.movesPerSecond, 1);
    for (std::size_t turn = 0; Now::now() - start < time;) {
        for (; start + turn * apart <= Now::now(); ++turn) Say(Speaker(turn));
        while (plan.movesPerSecond > 0 && start + outcome.moves * betweenMoves <= Now::now()) Move();
        ReadAll(1ms);
    }
    std::sort(outcome.delays.begin(), outcome.delays.end());
    return outcome;
}

void Load::Say(std::size_t index) {
    Client& client = clients[index];
    if (client.out) return;
    const std::string text(kLineSize, 'x');
    client.said = Now::now();
    Send(client, plan.roomSize == 0 ? client_message::LobbyLine(Record(index), text)
                                    : client_message::RoomLine(Record(index), text, RoomOf(index)));
    if (!client.echo.empty()) ++outcome.echoesDue;
}

/// One goes out, one that went out before looks, and one that looked before enters again.
void Load::Move() {
    const auto step = [&](std::size_t ago, auto message, bool out) {
        if (moves < ago) return;
        const std::size_t index = Mover(moves - ago);
        Send(clients[index], message(Record(index), RoomOf(index)));
        clients[index].out = out;
    };
    step(
        0, [](const auto& record, const auto& room) { return client_message::LeaveRoom(record, room); }, true);
    step(
        kMovesApart, [](const auto& record, const auto& room) { return client_message::PreviewRoom(record, room); },
        true);
    step(
        2 * kMovesApart,
        [](const auto& record, const auto& room) { return client_message::EnterRoom(record, room, "N"); }, false);
    ++moves;
    ++outcome.moves;
}

/// The rooms or lobbies take turns, so that lines come as evenly to each as to all.
std::size_t Load::Speaker(std::size_t turn) const {
    const std::size_t size = plan.roomSize == 0 ? plan.lobbySize : plan.roomSize;
    const std::size_t groups = clients.size() / size;
    return turn % groups * size + turn / groups % size;
}

/// Whoever opened a room stays in it.
std::size_t Load::Mover(std::size_t turn) const {
    const std::size_t rooms = clients.size() / plan.roomSize;
    return turn % rooms * plan.roomSize + 1 + turn / rooms % (plan.roomSize - 1);
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

void Load::Send(Client& client, const std::string& bytes) {
    if (send(client.socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(bytes.size()))
        throw std::runtime_error("a client was thrown out");
    outcome.bytesSent += bytes.size();
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
        Send(client, client_message::EnterLobby(Record(index), ""));
    }
    const auto answered = [&](const std::string& text) { return client.tail.find(text) != std::string::npos; };
    if ((client.state == State::Entering && answered("48:" + Name(index))) ||
        (client.state == State::Asking && (answered("5:" + Name(index)) || answered("~7:")))) {
        client.state = State::In;
        client.tail = {};
        ++in;
    }
}

} // namespace ombrin::bench

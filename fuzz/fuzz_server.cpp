// Four connections on one service. In the input, the byte 255 ends a step: a digit from 1 to 4 says whose it is, and
// what follows is a letter of kRequests with up to two characters for it, or ">" and bytes as they are.
// A step that begins with another character turns the clock. After each step every client's lists are what the server
// knows.
#include "fuzz_target.h"

#include "lobby_view.h"
#include "server/played_parts.h"

#include <algorithm>
#include <array>
#include <memory>

namespace ombrin::fuzz {

namespace {

using namespace server;
using namespace client_message;

/// What changes a list, or fills it.
constexpr std::array<std::string_view, 8> kListCodes{"0", "2", "3", "8", "11", "13", "14", "15"};

class WatchedClient : public server::test::Client {
public:
    using Client::Client;
    void Send(std::string_view message) override {
        Require(!closed, "nothing is sent behind the end");
        if (message == "Go;Chess;") return; // the lobby names, the one answer of another shape
        const std::string_view code = message.substr(0, message.find(':'));
        Require(!session->inGame || std::find(kListCodes.begin(), kListCodes.end(), code) == kListCodes.end(),
                "a client in a game keeps no lists");
        view.Take(message, session->name, session->shown.room);
    }
    LobbyView view;
};

/// What a letter makes of a client and the characters behind it.
struct Shorthand {
    char letter;
    std::string (*request)(const WatchedClient&, char, char);
};

std::string User(char c) { return std::string("u") + c; }
std::string RoomName(char c) { return std::string("R") + c; }
std::string Go(const WatchedClient& client) { return client.Record("Go"); }

constexpr std::array kRequests{
    Shorthand{'l', [](const WatchedClient& c, char, char) { return Logon(Go(c), "pw"); }},
    Shorthand{'e', [](const WatchedClient& c, char, char) { return EnterLobby(Go(c), ""); }},
    Shorthand{'E', [](const WatchedClient& c, char, char) { return EnterLobby(c.Record("Chess"), "rook"); }},
    Shorthand{'o', [](const WatchedClient& c, char, char) { return LeaveLobby(Go(c)); }},
    Shorthand{'x', [](const WatchedClient&, char, char) { return Closing(); }},
    Shorthand{'s', [](const WatchedClient& c, char a, char) { return LobbyLine(Go(c), RoomName(a)); }},
    Shorthand{'c',
              [](const WatchedClient& c, char a, char b) {
                  return CreateRoom(Go(c), RoomName(a), b == '2' ? "2" : "4", b == 'k' ? "1" : "0", "pw", "Y");
              }},
    Shorthand{'j', [](const WatchedClient& c, char a, char) { return EnterRoom(Go(c), RoomName(a), "N"); }},
    Shorthand{'J', [](const WatchedClient& c, char a, char) { return EnterPasswordRoom(Go(c), RoomName(a), "pw"); }},
    Shorthand{'p', [](const WatchedClient& c, char a, char) { return PreviewRoom(Go(c), RoomName(a)); }},
    Shorthand{'w', [](const WatchedClient& c, char a, char b) { return RoomLine(Go(c), User(b), RoomName(a)); }},
    Shorthand{'q', [](const WatchedClient& c, char a, char) { return LeaveRoom(Go(c), RoomName(a)); }},
    Shorthand{'d', [](const WatchedClient& c, char a, char) { return DestroyRoom(Go(c), RoomName(a)); }},
    Shorthand{'r', [](const WatchedClient& c, char a, char b) { return RejectUser(Go(c), RoomName(a), User(b)); }},
    Shorthand{'g', [](const WatchedClient& c, char a, char) { return Launch(Go(c), RoomName(a)); }},
    Shorthand{'i', [](const WatchedClient&, char, char) { return JoinRunningGame(); }},
    Shorthand{'k', [](const WatchedClient& c, char a, char) { return BackFromGame(Go(c), RoomName(a)); }},
    Shorthand{'m', [](const WatchedClient& c, char a, char b) { return PrivateMessage(Go(c), User(a), User(b)); }},
    Shorthand{'a', [](const WatchedClient& c, char a, char) { return AddBuddy(c.name, User(a)); }},
    Shorthand{'n', [](const WatchedClient& c, char a, char) { return RemoveBuddy(c.name, User(a)); }},
    Shorthand{'b', [](const WatchedClient& c, char, char) { return BuddyList(c.name); }},
};

class FuzzedService {
public:
    FuzzedService() {
        for (std::size_t i = 0; i < kClients; ++i) Connect(i);
    }

    void Run(std::string_view input) {
        while (!input.empty()) {
            Step(TakePiece(input));
            Compare();
        }
        for (std::size_t i = 0; i < kClients; ++i) End(i);
        Require(service.users.Count() == 0, "who has gone is logged off");
        for (const LobbySetup& lobby : service.configuration.lobbies)
            Require(service.lobbies.Find(lobby.name)->rooms.Count() == 0, "a room ends with its users");
    }

private:
    static constexpr std::size_t kClients = 4;

    static Configuration Lobbies() {
        Configuration configuration;
        configuration.lobbies = {{"Go", ""}, {"Chess", "rook"}};
        configuration.limits.buddies = 2;
        configuration.limits.roomsPerLobby = 3;
        return configuration;
    }

    void Connect(std::size_t index) {
        clients.push_back(std::make_unique<WatchedClient>(service, clock));
        current[index] = clients.back().get();
        current[index]->name = User(static_cast<char>('1' + index));
        current[index]->session = &service.Connected(*current[index], {"10.0.0.1", "10.0.0.1", "10.0.0.9"});
    }
    void End(std::size_t index) {
        Session* ended = std::exchange(current[index]->session, nullptr);
        current[index]->closed = true;
        service.Ended(*ended);
    }

    void Step(std::string_view step) {
        if (step.empty()) return;
        const auto index = static_cast<std::size_t>(step[0] - '1');
        if (index >= kClients) return TurnClock(step[0]);
        WatchedClient& client = *current[index];
        const auto at = [&](std::size_t i) { return i < step.size() ? step[i] : '1'; };
        if (at(1) == '>') client.Says(step.substr(2));
        for (const Shorthand& row : kRequests)
            if (row.letter == at(1)) client.Says(row.request(client, Plain(at(2)), Plain(at(3))));
        if (at(1) == '!') client.closed = true; // goes without a word
        for (std::size_t i = 0; i < kClients; ++i)
            if (current[i]->closed) End(i), Connect(i);
    }
    /// Separators are tried in bytes as they are.
    static char Plain(char c) { return std::string_view(":;~/ ").find(c) == std::string_view::npos ? c : '1'; }

    void TurnClock(char how) {
        clock.Turn(how == '+' ? Milliseconds(Service::kTakeOver) : Milliseconds(1'000));
        service.CloseSilent();
        for (std::size_t i = 0; i < kClients; ++i)
            if (current[i]->closed) End(i), Connect(i);
    }

    void Compare() {
        for (const WatchedClient* client : current) {
            const Session& session = *client->session;
            if (!session.LoggedOn() || session.seenIn == nullptr) continue;
            const LobbyView& view = client->view;
            for (const std::string& name : view.everybody)
                Require(service.users.Find(name) != nullptr, "who is listed is on line");
            for (const Session* user : service.users.All())
                Require(user->seenIn == nullptr || view.everybody.contains(user->name), "who came is listed");
            for (const auto& [lobby, users] : service.lobbies.Counts())
                Require(view.lobbies.at(std::string(lobby)) == static_cast<int>(users), "users of lobbies agree");
            if (session.lobby == nullptr)
                Require(session.room == nullptr, "rooms are in lobbies");
            else
                CompareLobby(session, view);
        }
    }

    static void CompareLobby(const Session& session, const LobbyView& view) {
        CheckRooms(*session.lobby);
        Require(view.inRoom == (session.room != nullptr), "a client knows whether it is in a room");
        if (session.inGame) return; // its lists are filled anew when it is back
        std::map<std::string, std::string> users;
        for (const Session* user : session.lobby->users)
            users.emplace(user->name, user->inGame ? "3" : user->room == nullptr ? "1" : "2");
        Require(view.users == users, "users and their states agree");
        std::map<std::string, LobbyView::RoomRow> rooms;
        for (const Room& room : session.lobby->rooms.All())
            rooms[room.name] = {std::string(room.Status()), static_cast<int>(room.members.size()), room.max};
        Require(view.rooms == rooms, "rooms and their counts agree");
        if (session.room == nullptr) return;
        Require(session.room->Has(session.name), "who is in a room is its member");
        std::set<std::string> members;
        for (const Member& member : session.room->members) members.insert(member.session->name);
        Require(view.roomUsers == members, "a member's list is the room");
    }

    static void CheckRooms(const Lobby& lobby) {
        for (const Room& room : lobby.rooms.All()) {
            Require(room.members.front().session == room.creator, "a room has its creator");
            Require(room.members.size() <= static_cast<std::size_t>(room.max), "a room is not overfull");
            Require(room.gameRuns == room.AnybodyInGame(), "a room's game runs while a member is in it");
            for (const Member& member : room.members) Require(member.session->room == &room, "members are in the room");
        }
    }

    server::test::HandClock clock;
    server::test::QuickPasswords passwords{clock};
    server::test::KeptLog log;
    AccountStore accounts{":memory:"};
    Service service{Lobbies(), {.openAccounts = true, .trustEmbedded = false}, {clock, passwords, accounts, log}};
    std::vector<std::unique_ptr<WatchedClient>> clients; ///< those that have gone, too: late calls find them
    std::array<WatchedClient*, kClients> current{};
};

} // namespace

void Try(std::string_view input) { FuzzedService().Run(input); }

} // namespace ombrin::fuzz

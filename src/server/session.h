// One connection as the service sees it.
#pragma once

#include "server/bucket.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin::server {

struct Lobby;
struct Room;

/// The connection behind a session. None of these calls comes back into the service before it has returned.
class Peer {
public:
    virtual ~Peer() = default;
    virtual void Send(std::string_view message) = 0;
    /// Sends what was given so far, then closes.
    virtual void Close() = 0;
    /// The session can take messages again.
    virtual void Continue() = 0;
};

/// Never used twice, so that what comes back late finds its session or nobody.
using SessionId = std::uint64_t;

/// What is limited by sender.
enum class Line { Lobby, Room, Private };
inline constexpr std::size_t kLineKinds = 3;

struct LineLimit {
    Bucket bucket;
    bool told = false; ///< that a line went to nobody, since the last that went out
};

/// What a client's list of a room's users may show: what the last answer held, and who has entered the room since.
struct ShownUsers {
    std::string room;
    std::vector<std::string> names; ///< also of those who have gone
};

/// What a user told with his first request for a room; it counts until he is in.
struct AskedRoom {
    std::string room;
    bool publicAddress = false;
};

/// Where a client is, and where it has found the server.
struct Whereabouts {
    std::string address; ///< as the server sees it
    std::string origin;  ///< what counts as one address: in IPv6 its network
    std::string reached; ///< the server's address, for what else it has to offer
};

struct Session {
    SessionId id;
    Peer& peer;
    std::string address; ///< of its client, as the server sees it
    std::string origin;  ///< what counts as one address
    std::string reached; ///< the server's address, as its client knows it

    std::string name;       ///< empty before the logon
    Lobby* lobby = nullptr; ///< none before the first entering and between two lobbies
    Room* room = nullptr;   ///< in the lobby; none outside of rooms
    ShownUsers shown{};
    AskedRoom asked{};
    /// Where his friends see him: after leaving a lobby he counts as in it until he enters the next.
    const Lobby* seenIn = nullptr;
    std::vector<std::string> buddies{}; ///< in his spelling
    bool inGame = false;                ///< from the launch, or his joining, until he is back
    bool spoken = false;                ///< a message has come
    bool closing = false;               ///< what still comes is not read
    int holds = 0;                      ///< reasons to read no message for now
    TimePoint lastHeard;
    /// From the lobby list of the logon to the first entering: who came and went meanwhile.
    std::optional<std::vector<std::string>> heldBack;
    std::size_t heldBackBytes = 0;

    std::array<LineLimit, kLineKinds> lines;
    Bucket pace;

    bool LoggedOn() const { return !name.empty(); }
};

} // namespace ombrin::server

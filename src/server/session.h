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

struct Session {
    SessionId id;
    Peer& peer;
    std::string address; ///< as the server sees it
    std::string origin;  ///< what counts as one address: in IPv6 its network

    std::string name;       ///< empty before the logon
    Lobby* lobby = nullptr; ///< none before the first entering and between two lobbies
    bool spoken = false;    ///< a message has come
    bool closing = false;   ///< what still comes is not read
    int holds = 0;          ///< reasons to read no message for now
    TimePoint lastHeard;
    /// From the lobby list of the logon to the first entering: who came and went meanwhile.
    std::optional<std::vector<std::string>> heldBack;
    std::size_t heldBackBytes = 0;

    std::array<LineLimit, kLineKinds> lines;
    Bucket pace;

    bool LoggedOn() const { return !name.empty(); }
};

} // namespace ombrin::server

// The lobbies and who is in them.
#pragma once

#include "server/rooms.h"
#include "server/session.h"
#include "session/wire/server_message.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin::server {

struct LobbySetup;

struct Lobby {
    std::string name;
    std::string password;        ///< empty: open to all
    std::vector<Session*> users; ///< in the order in which they came
    Rooms rooms{};

    void Add(Session& session);
    void Remove(Session& session);
    /// To everybody in the lobby but one; with nobody left out when that is null.
    void Send(std::string_view message, const Session* except = nullptr) const;
    /// The same for what changes a list: a client in a game gets its lists anew when it is back.
    void Update(std::string_view message, const Session* except = nullptr) const;
};

class Lobbies {
public:
    explicit Lobbies(std::span<const LobbySetup> setups);

    /// Names compare exactly, as the client compares them.
    Lobby* Find(std::string_view name);
    std::vector<std::string_view> Names() const;
    std::vector<server_message::LobbyCount> Counts() const;

private:
    std::vector<std::unique_ptr<Lobby>> lobbies; ///< in the configuration's order
};

} // namespace ombrin::server

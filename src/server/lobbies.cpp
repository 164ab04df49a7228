#include "server/lobbies.h"

#include "server/configuration.h"

#include <algorithm>

namespace ombrin::server {

void Lobby::Add(Session& session) {
    users.push_back(&session);
    session.lobby = this;
}

void Lobby::Remove(Session& session) {
    std::erase(users, &session);
    session.lobby = nullptr;
}

void Lobby::Send(std::string_view message, const Session* except) const {
    for (Session* user : users)
        if (user != except) user->peer.Send(message);
}

void Lobby::Update(std::string_view message, const Session* except) const {
    for (Session* user : users)
        if (user != except && !user->inGame) user->peer.Send(message);
}

Lobbies::Lobbies(std::span<const LobbySetup> setups) {
    for (const LobbySetup& setup : setups)
        lobbies.push_back(std::make_unique<Lobby>(Lobby{setup.name, setup.password, {}, {}}));
}

Lobby* Lobbies::Find(std::string_view name) {
    const auto found = std::find_if(lobbies.begin(), lobbies.end(),
                                    [&](const std::unique_ptr<Lobby>& lobby) { return lobby->name == name; });
    return found == lobbies.end() ? nullptr : found->get();
}

std::vector<std::string_view> Lobbies::Names() const {
    std::vector<std::string_view> names;
    for (const auto& lobby : lobbies) names.emplace_back(lobby->name);
    return names;
}

std::vector<server_message::LobbyCount> Lobbies::Counts() const {
    std::vector<server_message::LobbyCount> counts;
    for (const auto& lobby : lobbies) counts.push_back({lobby->name, lobby->users.size()});
    return counts;
}

} // namespace ombrin::server

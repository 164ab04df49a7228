// The service with clients of accounts and lobbies of its own.
#pragma once

#include "played_parts.h"

#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ombrin::server::test {

struct World {
    explicit World(const Configuration& configuration = Lobbies(), Access access = {})
        : passwords(clock), accounts(":memory:"), service(configuration, access, {clock, passwords, accounts, log}) {}

    /// "Go", open to all, and "Chess" with the password "rook".
    static Configuration Lobbies() {
        Configuration configuration;
        configuration.lobbies = {{"Go", ""}, {"Chess", "rook"}};
        configuration.greeting = "Be nice: please";
        return configuration;
    }

    Client& Connects(const std::string& name, const std::string& origin = "10.0.0.1") {
        clients.push_back(std::make_unique<Client>(service, clock));
        Client& client = *clients.back();
        client.name = name;
        client.session = &service.Connected(client, {origin, origin, "10.0.0.9"});
        return client;
    }
    /// Connected and logged on by a new account with the password "pw"; nothing read yet.
    Client& LoggedOn(const std::string& name, const std::string& origin = "10.0.0.1") {
        accounts.Add({name, "hash of pw"});
        Client& client = Connects(name, origin);
        client.LogsOn();
        return client;
    }
    Client& InLobby(const std::string& name, const std::string& lobby = "Go") {
        Client& client = LoggedOn(name);
        client.Enters(lobby, "rook");
        ForgetAllRead();
        return client;
    }
    /// Without a word his connection ends.
    void Says(Client& client, const std::string& words) { words.empty() ? Disconnects(client) : client.Says(words); }
    void Disconnects(Client& client) { service.Ended(*std::exchange(client.session, nullptr)); }
    void ForgetAllRead() {
        for (const auto& client : clients) client->Reads();
    }

    HandClock clock;
    QuickPasswords passwords;
    AccountStore accounts;
    KeptLog log;
    Service service;
    std::vector<std::unique_ptr<Client>> clients;
};

} // namespace ombrin::server::test

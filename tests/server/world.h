// The service with clients that are no sockets and a clock that is turned by hand.
#pragma once

#include "server/message_cutter.h"
#include "server/service.h"
#include "session/wire/client_message.h"

#include <gmock/gmock.h>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ombrin::server::test {

class HandClock : public Alarms {
public:
    TimePoint Now() const override { return now; }
    void After(Milliseconds delay, std::function<void()> callback) override {
        due.emplace(now + delay, std::move(callback));
    }
    /// Runs what is due up to then, in order.
    void Turn(Milliseconds by) {
        const TimePoint until = now + by;
        while (!due.empty() && due.begin()->first <= until) {
            const auto next = due.extract(due.begin());
            now = next.key();
            next.mapped()();
        }
        now = until;
    }

private:
    TimePoint now{Milliseconds(1'000'000)};
    std::multimap<TimePoint, std::function<void()>> due;
};

/// Answers as the real one does, only at once.
class QuickPasswords : public Passwords {
public:
    explicit QuickPasswords(Alarms& alarms) : alarms(alarms) {}
    void Hash(const std::string&, std::string password, std::function<void(std::optional<std::string>)> done) override {
        alarms.After(Milliseconds(0), [=] { done("hash of " + password); });
    }
    void Verify(const std::string&, std::string password, std::string hash, std::function<void(bool)> done) override {
        alarms.After(Milliseconds(0), [=] { done(hash == "hash of " + password); });
    }

private:
    Alarms& alarms;
};

class KeptLog : public Log {
public:
    std::string text;

protected:
    void Write(std::string_view line) override { text += std::string(line) + "\n"; }
};

class Client : public Peer {
public:
    Client(Service& service, HandClock& clock) : service(service), clock(clock) {}
    void Send(std::string_view message) override { received += message; }
    void Close() override { closed = true; }
    void Continue() override {
        clock.After(Milliseconds(0), [this] { Process(); });
    }

    /// And everything that follows from it at once.
    void Says(std::string_view bytes) {
        cutter.Append(bytes);
        Process();
        clock.Turn(Milliseconds(0));
    }
    /// What came since the last look.
    std::string Reads() { return std::exchange(received, {}); }
    std::string Record(std::string_view lobby) const { return Join(name, ";", lobby, ";10.0.0.1"); }
    void Enters(std::string_view lobby, std::string_view password = "") {
        Says(client_message::EnterLobby(Record(lobby), password));
    }
    void LogsOn(std::string_view password = "pw") { Says(client_message::Logon(Record("temp"), password)); }

    std::string name;
    Session* session = nullptr;
    bool closed = false;

private:
    void Process() {
        while (session != nullptr && session->holds == 0) {
            const auto piece = cutter.Next();
            if (!piece) return;
            if (piece->tooLong)
                service.ReceivedTooLong(*session);
            else
                service.Receive(*session, piece->text);
        }
    }

    Service& service;
    HandClock& clock;
    MessageCutter cutter;
    std::string received;
};

class World : public testing::Test {
protected:
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
        client.session = &service.Connected(client, origin, origin);
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

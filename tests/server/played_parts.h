// What the service stands on, played: clients that are no sockets, a clock that is turned by hand, passwords at once.
#pragma once

#include "server/message_cutter.h"
#include "server/service.h"
#include "session/wire/client_message.h"

#include <map>
#include <string>
#include <utility>

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
        while (session != nullptr && !closed && session->holds == 0) {
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

} // namespace ombrin::server::test

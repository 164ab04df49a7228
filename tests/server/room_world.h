// Users in lobbies, what they ask of rooms, and what each of them hears of it.
#pragma once

#include "world.h"

#include <string>
#include <utility>
#include <vector>

namespace ombrin::server::test {

/// ann, bob, cid and dan are in "Go" and eve is in "Chess"; all have the address 10.0.0.1.
struct RoomTest : World, testing::Test {
    RoomTest() : World(Lobbies()) {}

    static Configuration Lobbies() {
        Configuration configuration = World::Lobbies();
        configuration.limits.roomsPerLobby = 3;
        return configuration;
    }

    /// What ann, bob, cid, dan and eve hear of it; those not named hear nothing.
    void Step(const char* what, Client& who, const std::string& says, std::vector<std::string> hear) {
        Says(who, says);
        Hear(what, std::move(hear));
    }
    void Hear(const char* what, std::vector<std::string> hear) {
        hear.resize(5);
        std::size_t i = 0;
        for (Client* user : {&ann, &bob, &cid, &dan, &eve})
            EXPECT_EQ(user->Reads(), hear[i++]) << what << ", what " << user->name << " hears";
    }

    /// What all in "Go" hear, behind what each of the five hears for himself.
    static std::vector<std::string> All(const std::string& all, std::vector<std::string> own) {
        own.resize(5);
        for (std::size_t i = 0; i < 4; ++i) own[i] += all;
        return own;
    }

    static std::string Creates(const Client& user, const std::string& room, const std::string& max = "4",
                               const std::string& locked = "0", const std::string& password = "",
                               const std::string& publicIP = "N") {
        return Raw("4", user, {room, max, locked, password, publicIP});
    }
    /// As a client that does not escape what is in its fields.
    static std::string Raw(const std::string& code, const Client& user, const std::vector<std::string>& fields) {
        std::string message = "Ombrin:" + code + ":" + user.Record("Go") + ";";
        for (const std::string& field : fields) message += field + ";";
        return message + ":~";
    }
    static std::string Asks(const Client& user, const std::string& room, const std::string& publicIP = "N") {
        return client_message::EnterRoom(user.Record("Go"), room, publicIP);
    }
    static std::string Answers(const Client& user, const std::string& room, const std::string& password) {
        return client_message::EnterPasswordRoom(user.Record("Go"), room, password);
    }
    static std::string Previews(const Client& user, const std::string& room) {
        return client_message::PreviewRoom(user.Record("Go"), room);
    }
    static std::string Leaves(const Client& user, const std::string& room) {
        return client_message::LeaveRoom(user.Record("Go"), room);
    }
    static std::string Destroys(const Client& user, const std::string& room) {
        return client_message::DestroyRoom(user.Record("Go"), room);
    }
    static std::string Rejects(const Client& user, const std::string& room, const std::string& rejected) {
        return client_message::RejectUser(user.Record("Go"), room, rejected);
    }
    static std::string Writes(const Client& user, const std::string& room, const std::string& line = "hi") {
        return Raw("5", user, {line, room});
    }
    /// ann's room "Red Base" with bob in it.
    void OpenRedBase() {
        ann.Says(Creates(ann, "Red Base"));
        bob.Says(Asks(bob, "Red Base"));
        ForgetAllRead();
    }

    Client& ann = InLobby("ann");
    Client& bob = InLobby("bob");
    Client& cid = InLobby("cid");
    Client& dan = InLobby("dan");
    Client& eve = InLobby("eve", "Chess");
};

} // namespace ombrin::server::test

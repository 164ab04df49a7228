#include "server/message_cutter.h"
#include "server/net/connection.h"
#include "server_process.h"
#include "session/wire/client_message.h"

#include <csignal>
#include <gmock/gmock.h>
#include <memory>

namespace ombrin::server::test {

using testing::HasSubstr;
using testing::Not;

/// Passwords that cost nothing, and lines as many as one likes.
constexpr std::string_view kQuick = R"({
    "lobbies": ["Go"],
    "limits": {"passwordMemoryKiB": 8, "passwordPasses": 1, "lobbyLines": {"burst": 100000, "perSecond": 100000}}})";

struct Loopback : testing::Test {
    Scratch home;
};

struct UserInGo : WireClient {
    UserInGo(const ServerProcess& server, const std::string& name, int receiveBuffer = 0)
        : WireClient(server.port, "127.0.0.1", receiveBuffer) {
        LogsOn(name);
        Enters(name, "Go");
    }
};

TEST_F(Loopback, TheLobbyNamesReachAPeerThatHasEndedItsSending) {
    ServerProcess server(home.path, {});
    WireClient page(server.port);
    page.Sends(client_message::LobbyNames());
    page.EndsSending();
    EXPECT_EQ(page.ReadsToEnd(), "Quake3;Half Life;Chess;Go;");
}

TEST_F(Loopback, AMessageWithoutAnEndCostsItsSenderTheConnection) {
    ServerProcess server(home.path, {"--open-accounts"}, kQuick);
    UserInGo bob(server, "bob"), ann(server, "ann");
    ann.Sends(std::string(MessageCutter::kLongestMessage, 'x') + "~");
    ann.ReadsUntil("36:The message was too long and was thrown away.;~");
    ann.TriesToSend(std::string(MessageCutter::kRunaway + 1, 'x'));
    bob.ReadsUntil("15:ann;~49:ann;Go;1;~");
    EXPECT_THAT(server.Log(), HasSubstr("ann ends: a message without an end"));
}

/// A line of some 30 KB; its echo ends as no other message does.
std::string LongLine(const std::string& name) {
    constexpr std::size_t kSize = 30'000;
    return client_message::LobbyLine(name + ";Go;127.0.0.1", std::string(kSize, 'x') + "!");
}

TEST_F(Loopback, WhoDoesNotReadIsDroppedAndTheOthersHearOn) {
    ServerProcess server(home.path, {"--open-accounts"}, kQuick);
    constexpr int kSmallBuffer = 4'096;
    UserInGo slow(server, "slow", kSmallBuffer), ann(server, "ann");

    // More than the queue and what the system may take for both ends.
    constexpr std::size_t kEnough = 4 * Connection::kMostWaiting;
    std::string heard;
    std::size_t sent = 0;
    for (; sent < kEnough && heard.find("15:slow;~") == std::string::npos; sent += heard.size()) {
        ann.Sends(LongLine("ann"));
        heard = ann.ReadsUntil("!:;~");
    }
    if (heard.find("15:slow;~") == std::string::npos) ann.ReadsUntil("15:slow;~49:slow;Go;1;~");
    EXPECT_GT(sent, Connection::kMostWaiting);
    EXPECT_THAT(server.Log(), HasSubstr("slow ends: it does not read"));
}

TEST_F(Loopback, WhoStandsStillForAWhileMissesNothing) {
    ServerProcess server(home.path, {"--open-accounts"}, kQuick);
    UserInGo still(server, "still"), ann(server, "ann");
    constexpr int kLines = 100; // some 3 MB
    for (int i = 0; i < kLines; ++i) {
        ann.Sends(LongLine("ann"));
        ann.ReadsUntil("!:;~");
    }
    for (int i = 0; i < kLines; ++i) still.ReadsUntil("!:;~");
    ann.Sends(client_message::LobbyLine("ann;Go;127.0.0.1", "and on"));
    still.ReadsUntil("1:ann:and on:;~");
}

TEST_F(Loopback, TenChatOnBesideOneOfEachKindThatMisbehaves) {
    ServerProcess server(home.path, {"--open-accounts"}, R"({"lobbies": ["Go"],
        "limits": {"passwordMemoryKiB": 8, "passwordPasses": 1}})");
    const auto repeated = [](const std::string& message) {
        std::string text;
        constexpr int kTimes = 2'000;
        for (int i = 0; i < kTimes; ++i) text += message;
        return text;
    };
    const std::string record = "x;Go;127.0.0.1";
    const std::string misbehaviours[] = {
        repeated(client_message::LobbyLine(record, "me")),
        repeated(client_message::CreateRoom(record, "R", "4", "0", "", "N") + client_message::DestroyRoom(record, "R")),
        "Ombrin:3:x;Go;1;half", std::string(MessageCutter::kLongestMessage + 1, 'x'), "O"};
    std::vector<std::unique_ptr<WireClient>> clients;
    const auto enters = [&](const std::string& name) -> WireClient& {
        return *clients.emplace_back(std::make_unique<UserInGo>(server, name));
    };
    constexpr std::size_t kChatting = 10;
    for (std::size_t i = 0; i < kChatting; ++i) enters("n" + std::to_string(i));
    for (const std::string& misbehaviour : misbehaviours)
        enters("x" + std::to_string(clients.size())).Sends(misbehaviour); // and none of them reads
    for (std::size_t i = 0; i < kChatting; ++i) {
        const std::string name = "n" + std::to_string(i);
        clients[i]->Sends(client_message::LobbyLine(name + ";Go;127.0.0.1", "hi"));
        for (std::size_t j = 0; j < kChatting; ++j) clients[j]->ReadsUntil("1:" + name + ":hi:;~");
    }
}

TEST_F(Loopback, OneAddressCannotTakeAllConnections) {
    ServerProcess server(home.path, {}, R"({"limits": {"connectionsPerAddress": 2}})");
    WireClient first(server.port);
    WireClient second(server.port);
    first.Sends(client_message::LobbyLine("x;y;z", "are you there?"));
    second.Sends(client_message::LobbyLine("x;y;z", "are you there?"));
    first.ReadsUntil("20:~");
    second.ReadsUntil("20:~");
    WireClient third(server.port);
    EXPECT_EQ(third.ReadsToEnd(), "");
    WireClient elsewhere(server.port, "127.0.0.3");
    elsewhere.Sends(client_message::LobbyNames());
    EXPECT_THAT(elsewhere.ReadsToEnd(), HasSubstr("Go;"));
    // The page's connection from the same address is let in as soon as one of the two has gone.
    first.Sends(client_message::Closing());
    EXPECT_EQ(first.ReadsToEnd(), "");
}

TEST_F(Loopback, ASignalEndsItCleanlyAndAccountsStay) {
    for (const int signal : {SIGTERM, SIGINT}) {
        ServerProcess server(home.path, {}, kQuick);
        WireClient ann(server.port);
        if (signal == SIGTERM) {
            ann.Sends(client_message::CreateAccount("ann", "Sesame9", "Sesame9"));
            ann.ReadsUntil("27:");
        }
        ann.LogsOn("ann", "Sesame9");
        server.Signal(signal);
        EXPECT_EQ(server.Wait(), 0);
        ann.ReadsToEnd();
        EXPECT_THAT(server.Log(), HasSubstr("ends by signal " + std::to_string(signal)));
        EXPECT_THAT(server.Log(), Not(HasSubstr("Sesame9")));
    }
}

TEST_F(Loopback, WhatPreventsTheStartIsSaidWithItsPlace) {
    ServerProcess running(home.path, {});
    ASSERT_GT(running.filesPort, 0);
    EXPECT_LT(running.filesPort, 32'768);
    const Scratch neighbour;
    const ServerProcess second(neighbour.path, {});
    EXPECT_NE(second.filesPort, running.filesPort);
    struct Case {
        std::vector<std::string> options;
        std::string configuration;
        std::string said;
    };
    const Case cases[] = {
        {{}, R"({"lobbies": ["a:b"]})", "server.json: /lobbies/0: must not hold"},
        {{}, R"({"files": [{"name": "a.b", "directory": 1}]})", "server.json: /files/0: "},
        {{"--config", "/no/such/file"}, "", "/no/such/file: cannot be read"},
        {{"--files-port", std::to_string(running.filesPort)}, "", "cannot listen on 127.0.0.1:"},
    };
    for (const Case& trial : cases) {
        const Scratch other;
        ServerProcess refused(other.path, trial.options, trial.configuration);
        ASSERT_EQ(refused.readyLine, "");
        EXPECT_NE(refused.Wait(), 0);
        EXPECT_THAT(refused.Log(), HasSubstr(trial.said));
    }
}

} // namespace ombrin::server::test

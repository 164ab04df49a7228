#include "world.h"

namespace ombrin::server::test {

struct BuddyTest : World, testing::Test {
    BuddyTest() : World(Few()) {}
    static Configuration Few() {
        Configuration configuration = Lobbies();
        configuration.greeting.clear();
        configuration.limits.buddies = 3;
        return configuration;
    }
    static std::string Asks(Client& user) {
        user.Says(client_message::BuddyList(user.name));
        return user.Reads();
    }
    static std::string Adds(Client& user, const std::string& buddy) {
        user.Says(client_message::AddBuddy(user.name, buddy));
        return user.Reads();
    }
};

TEST_F(BuddyTest, AListSaysWhereEachIsAndStaysForTheNextLogon) {
    InLobby("Bob", "Chess");
    Client& ann = InLobby("ann");
    Client& cid = LoggedOn("cid");
    ForgetAllRead();
    EXPECT_EQ(Adds(ann, "Bob"), "41:Bob;Chess;~");
    EXPECT_EQ(Adds(ann, "nobody"), "41:nobody;;~");
    EXPECT_EQ(Adds(ann, "cid"), "41:cid;;~") << "logged on, in no lobby yet";
    EXPECT_EQ(Asks(ann), "41:Bob;Chess;nobody;;cid;;~");
    EXPECT_EQ(Asks(cid), "41:~");

    Disconnects(ann);
    Client& again = InLobby("ann");
    EXPECT_EQ(Asks(again), "41:Bob;Chess;cid;;nobody;;~");
    again.Says(client_message::RemoveBuddy("ann", "BOB"));
    again.Says(client_message::RemoveBuddy("ann", "who"));
    EXPECT_EQ(again.Reads(), "");
    Disconnects(again);
    EXPECT_EQ(Asks(InLobby("ann")), "41:cid;;nobody;;~");
}

TEST_F(BuddyTest, EachStepOfABuddyIsToldToThoseWhoListHim) {
    Client& ann = InLobby("ann");
    Client& dan = InLobby("dan");
    Adds(ann, "BOB"); // his client finds its row by what he typed
    Client& bob = LoggedOn("bob");
    EXPECT_EQ(ann.Reads() + dan.Reads(), "") << "a logon is no lobby yet";
    bob.Enters("Go");
    EXPECT_EQ(ann.Reads(), "41:BOB;Go;~0:bob;1;~48:bob;Go;~");
    EXPECT_EQ(dan.Reads(), "0:bob;1;~48:bob;Go;~");
    bob.Says(client_message::LeaveLobby(bob.Record("Go")));
    EXPECT_EQ(ann.Reads(), "15:bob;~49:bob;Go;0;~");
    EXPECT_EQ(Asks(ann), "41:BOB;Go;~") << "until he enters the next he counts as in the last";
    bob.Enters("Chess", "rook");
    EXPECT_EQ(ann.Reads(), "41:BOB;Chess;~48:bob;Chess;~");
    bob.Says(client_message::Closing());
    EXPECT_EQ(ann.Reads(), "49:bob;Chess;1;~41:BOB;;~");
    EXPECT_EQ(Asks(ann), "41:BOB;;~");

    Disconnects(bob);
    ann.Says(client_message::RemoveBuddy("ann", "bob"));
    InLobby("bob");
    EXPECT_EQ(Asks(ann), "41:~");
}

TEST_F(BuddyTest, WhatCannotBeABuddyIsRefused) {
    Client& ann = InLobby("ann");
    const std::pair<const char*, const char*> cases[] = {
        {"", "36:There is no user of that name.;~"},
        {"thirteenchars", "36:There is no user of that name.;~"},
        {"a:b", "36:There is no user of that name.;~"},
        {"ANN", "36:You cannot be your own buddy.;~"},
        {"one", "41:one;;~"},
        {"two", "41:two;;~"},
        {"three", "41:three;;~"},
        {"four", "36:Your list of buddies is full.;~"},
        {"Two", "41:Two;;~"},
    };
    for (const auto& [buddy, answer] : cases) EXPECT_EQ(Adds(ann, buddy), answer) << buddy;
    EXPECT_EQ(Asks(ann), "41:one;;three;;Two;;~") << "one name, in its last spelling";
}

} // namespace ombrin::server::test

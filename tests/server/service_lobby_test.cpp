#include "world.h"

namespace ombrin::server::test {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct LobbyTest : World, testing::Test {};

TEST_F(LobbyTest, EnteringBringsEverythingAndTellsTheOthers) {
    Client& bob = InLobby("bob");
    Client& cid = InLobby("cid", "Chess");
    Client& ann = LoggedOn("ann");
    ann.Reads();
    ann.Says(client_message::EnterLobby("cid;Go;1", "")); // whoever he claims to be, he is who logged on
    EXPECT_EQ(ann.Reads(), "21:Go;~0:bob;1;ann;1;~2:~47:bob;cid;ann;~1:Ardvelle:Be nice%*|@ please:;~48:ann;Go;~");
    EXPECT_EQ(bob.Reads(), "0:ann;1;~48:ann;Go;~");
    EXPECT_EQ(cid.Reads(), "48:ann;Go;~");
    ann.Says(client_message::LobbyLine("bob;Go;1", "hi"));
    EXPECT_EQ(bob.Reads(), "1:ann:hi:;~");
}

TEST_F(LobbyTest, AWrongPasswordOrAnUnknownLobbyAsksAgain) {
    Client& ann = LoggedOn("ann");
    ann.Reads();
    ann.Enters("Chess", "knight");
    EXPECT_EQ(ann.Reads(), "46:Go,0;Chess,0;~");
    ann.Says(client_message::EnterLobby("ann;Chess;1"));
    EXPECT_EQ(ann.Reads(), "46:Go,0;Chess,0;~") << "without the field, too";
    ann.Enters("go");
    EXPECT_EQ(ann.Reads(), "36:There is no lobby of that name.;~46:Go,0;Chess,0;~");
    EXPECT_THAT(log.text, Not(HasSubstr("knight")));
    ann.Enters("Chess", "rook");
    EXPECT_THAT(ann.Reads(), StartsWith("21:Chess;~"));
}

TEST_F(LobbyTest, AMoveIsSeenInBothLobbiesAndCountedByAll) {
    Client& ann = InLobby("ann");
    Client& bob = InLobby("bob");
    Client& cid = InLobby("cid", "Chess");

    ann.Says(client_message::LeaveLobby(ann.Record("Go")));
    EXPECT_EQ(ann.Reads(), "49:ann;Go;0;~22:Go,1;Chess,1;~");
    EXPECT_EQ(bob.Reads(), "15:ann;~49:ann;Go;0;~");
    EXPECT_EQ(cid.Reads(), "49:ann;Go;0;~");

    bob.Says(client_message::LobbyLine(bob.Record("Go"), "still there?"));
    EXPECT_EQ(ann.Reads(), "") << "who left hears nothing more";
    ForgetAllRead();

    ann.Enters("Chess", "rook");
    EXPECT_THAT(ann.Reads(), HasSubstr("0:cid;1;ann;1;~"));
    EXPECT_EQ(cid.Reads(), "0:ann;1;~48:ann;Chess;~");
    EXPECT_EQ(bob.Reads(), "48:ann;Chess;~");
}

TEST_F(LobbyTest, WhoCameAndWentBeforeTheFirstLobbyIsToldWithIt) {
    Client& bob = InLobby("bob");
    Client& ann = LoggedOn("ann");
    EXPECT_THAT(ann.Reads(), HasSubstr("22:Go,1;Chess,0;~"));

    InLobby("cid");
    bob.Says(client_message::LeaveLobby(bob.Record("Go")));
    Disconnects(bob);
    EXPECT_EQ(ann.Reads(), "");

    ann.Enters("Chess", "wrong");
    EXPECT_EQ(ann.Reads(), "48:cid;Go;~49:bob;Go;0;~49:bob;;1;~46:Go,1;Chess,0;~") << "the first attempt counts";
    InLobby("dan");
    ann.Enters("Chess", "rook");
    EXPECT_THAT(ann.Reads(), Not(HasSubstr("48:cid")));
}

TEST_F(LobbyTest, WhoNeverEntersALobbyCannotMakeTheServerRememberForever) {
    Client& ann = LoggedOn("ann");
    Client& bob = InLobby("bob");
    const std::string move =
        client_message::LeaveLobby(bob.Record("Go")) + client_message::EnterLobby(bob.Record("Go"), "");
    const std::size_t toldByAMove = std::string("49:bob;Go;0;~48:bob;Go;~").size();
    for (std::size_t told = 0; told <= Service::kMostHeldBack && !ann.closed; told += toldByAMove) {
        service.Receive(*bob.session, "Ombrin:12:bob;Go;1;:");
        service.Receive(*bob.session, "Ombrin:2:bob;Go;1;;:");
        bob.Reads();
    }
    clock.Turn(Milliseconds(0));
    EXPECT_TRUE(ann.closed);
    EXPECT_FALSE(bob.closed);
}

TEST_F(LobbyTest, HoweverOneEndsTheOthersAreToldOnce) {
    for (const std::string& words : {client_message::Closing(), std::string()}) {
        Client& bob = InLobby("bob");
        Client& ann = InLobby("ann");
        Says(ann, words);
        EXPECT_EQ(bob.Reads(), "15:ann;~49:ann;Go;1;~") << words;
        EXPECT_EQ(ann.Reads(), "") << words;
        if (ann.session != nullptr) Disconnects(ann);
        EXPECT_EQ(bob.Reads(), "") << words;
        Disconnects(bob);
    }
}

TEST_F(LobbyTest, WhatCannotBeAnsweredEndsTheClientsWait) {
    Client& ann = InLobby("ann");
    const std::string record = ann.Record("Go");
    const std::pair<std::string, std::string> requests[] = {
        {client_message::EnterRoom(record, "R", "x"), "36:*;~18:~"},
        {"Ombrin:7:too;few;:~", "36:*;~18:~"},
        {"Ombrin:4:too;few;:~", "36:*;~17:~"},
        {"Ombrin:4:no end~", "36:*;~17:~"},
        {client_message::LeaveRoom(record, "R"), "9:~"},
        {client_message::DestroyRoom(record, "R"), "10:~"},
        {client_message::Launch(record, "R"), "36:*;~"},
        {client_message::BackFromGame(record, "R"), "36:*;~"},
        {"Ombrin:29:4;:~", "36:*;~"},
        {client_message::RequestFile("x.exe"), "36:*;~"},
        {client_message::BuddyList("ann"), "41:~"},
        {client_message::HeartBeat(), ""},
        {client_message::EnterLobby(record, ""), "36:*;~"},
        {client_message::Logon(record, "pw"), "36:*;~"},
        {client_message::CreateAccount("bob", "pw", "pw"), "36:*;~"},
        {"Ombrin:99:x;:~", "36:*;~"},
        {"Ombrin:03:ann;Go;1;hi;:~", "36:*;~"},
        {"Ombrin:3:ann;Go;1;hi;~", "36:*;~"},
        {"3:ann;Go;1;hi;:~", "36:*;~"},
        {"~", "36:*;~"},
    };
    for (const auto& [request, answer] : requests) {
        ann.Says(request);
        std::string read = ann.Reads();
        if (read.starts_with("36:")) read.replace(3, read.find(';') - 3, "*");
        EXPECT_EQ(read, answer) << request;
        clock.Turn(Milliseconds(200)); // some of these have their price
    }
    ann.Says(client_message::LobbyLine(record, "hi"));
    EXPECT_EQ(ann.Reads(), "1:ann:hi:;~") << "nothing has changed by all that";
}

TEST_F(LobbyTest, LeavingNoLobbyIsAnsweredByTheListAlone) {
    Client& bob = InLobby("bob");
    Client& ann = LoggedOn("ann");
    ann.Reads();
    ann.Says(client_message::LeaveLobby(ann.Record("temp")));
    EXPECT_EQ(ann.Reads(), "22:Go,1;Chess,0;~");
    EXPECT_EQ(bob.Reads(), "");

    InLobby("cid");
    ann.Says(client_message::LeaveLobby(ann.Record("temp")));
    EXPECT_EQ(ann.Reads(), "22:Go,2;Chess,0;~");
    ann.Enters("Go");
    EXPECT_THAT(ann.Reads(), StartsWith("21:Go;~")) << "cid is counted in the list already";
}

} // namespace ombrin::server::test

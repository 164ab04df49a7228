#include "room_world.h"

#include <algorithm>

namespace ombrin::server::test {

using testing::HasSubstr;
using testing::Not;

TEST_F(RoomTest, ARoomFromItsOpeningToItsEnd) {
    const std::string opened = "2:Red Base;1;10.0.0.1;1;4;~13:5:ann;Red Base;10.0.0.1;~";
    const std::string bobIn = "13:2:bob;Red Base;10.0.0.1;~", bobOut = "13:1:bob;Red Base;10.0.0.1;~";
    const std::string cidIn = "13:2:cid;Red Base;10.0.0.1;~";
    const std::string ended = "13:1:ann;Red Base;10.0.0.1;1:cid;Red Base;10.0.0.1;~11:Red Base;~";
    const std::string line = "4:cid:a%*|@b:;~";
    Step("create", ann, Creates(ann, "Red Base", "4", "0", "stale", "Y"), All(opened, {"5:ann;10.0.0.1;Y;~"}));
    Step("enter", bob, Asks(bob, "Red Base"),
         All(bobIn, {"3:bob;10.0.0.1;N;~", "3:ann;10.0.0.1;Y;bob;10.0.0.1;N;~7:ann;~"}));
    Step("enter again", cid, Asks(cid, "Red Base", "Y"),
         All(cidIn,
             {"3:cid;10.0.0.1;Y;~", "3:cid;10.0.0.1;Y;~", "3:ann;10.0.0.1;Y;bob;10.0.0.1;N;cid;10.0.0.1;Y;~7:ann;~"}));
    Step("line", cid, Writes(cid, "Red Base", "a%*|@b"), {line, line, line});
    Step("forged line", cid, Writes(cid, "Red Base", "x:;ann:y"),
         {"", "", "36:The server cannot read this request.;~"});
    Step("line from outside", dan, Writes(dan, "Red Base"), {});
    Step("leave", bob, Leaves(bob, "Red Base"), {"8:bob;~" + bobOut, "9:~" + bobOut, "8:bob;~" + bobOut, bobOut});
    Step("late line", bob, Writes(bob, "Red Base"), {});
    Step("leave once more", bob, Leaves(bob, "Red Base"), {"", "9:~"});
    Step("destroy from outside", dan, Destroys(dan, "Red Base"), {"", "", "", "10:~"});
    Step("destroy by a member", cid, Destroys(cid, "Red Base"), {"", "", "36:Only its creator can destroy a room.;~"});
    Step("destroy", ann, Destroys(ann, "Red Base"), All(ended, {"10:~", "", "10:~"}));
    Step("destroy once more", ann, Destroys(ann, "Red Base"), {"10:~"});
    Step("late entry", dan, Asks(dan, "Red Base"), {"", "", "", "19:~"});
    Step("late line", cid, Writes(cid, "Red Base"), {});
    Step("late preview", dan, Previews(dan, "Red Base"), {});
    Step("late rejection", ann, Rejects(ann, "Red Base", "cid"), {});
}

TEST_F(RoomTest, WhoComesSeesTheRoomsAndWhoIsInThem) {
    OpenRedBase();
    cid.Says(Creates(cid, "Key", "32", "1", ""));
    Client& fay = LoggedOn("fay");
    fay.Reads();
    fay.Enters("Go");
    EXPECT_THAT(fay.Reads(),
                HasSubstr("0:ann;2;bob;2;cid;2;dan;1;fay;1;~2:Red Base;1;10.0.0.1;2;4;Key;4;10.0.0.1;1;32;~47:"));
}

TEST_F(RoomTest, ARoomIsOpenedWithGoodValuesOnly) {
    const std::string longest(40, 'x');
    const struct {
        const char* what;
        std::string says;
        bool good = false;
    } kCases[] = {
        {"no name", Creates(ann, "")},
        {"a name with a blank around it", Creates(ann, " R")},
        {"a name that is too long", Creates(ann, longest + "x")},
        {"the longest name", Creates(ann, longest), true},
        {"a bracket", Creates(ann, "R(1")},
        {"a slash", Creates(ann, "R/1")},
        {"a colon", Creates(ann, "R:1")},
        {"an invisible character", Creates(ann, "R\xAD")},
        {"one user", Creates(ann, "R", "1")},
        {"two users", Creates(ann, "R", "2"), true},
        {"32 users", Creates(ann, "R", "32"), true},
        {"33 users", Creates(ann, "R", "33")},
        {"users with a blank", Creates(ann, "R", "4 ")},
        {"a lock of another kind", Creates(ann, "R", "4", "2")},
        {"the longest password", Creates(ann, "R", "4", "1", std::string(20, 'p')), true},
        {"a password that is too long", Creates(ann, "R", "4", "1", std::string(21, 'p'))},
        {"a password with a bracket", Creates(ann, "R", "4", "1", "p(")},
        {"the same, but it does not count", Creates(ann, "R", "4", "0", "p("), true},
        {"a password that tears the message apart", Creates(ann, "R", "4", "0", "p;q")},
        {"an address neither public nor not", Creates(ann, "R", "4", "0", "", "x")},
    };
    for (const auto& row : kCases) {
        ann.Says(row.says);
        const std::string read = ann.Reads();
        EXPECT_EQ(read.starts_with("5:"), row.good) << row.what << ": " << read;
        EXPECT_EQ(read.starts_with("36:") && read.ends_with(";~17:~"), !row.good) << row.what << ": " << read;
        ann.Says(Destroys(ann, ""));
        ann.Reads();
        clock.Turn(Milliseconds(500)); // opening has its price
    }
    EXPECT_THAT(bob.Reads(), Not(HasSubstr("36:")));
}

TEST_F(RoomTest, ANameIsTakenOnceInALobbyAndRoomsAreLimited) {
    OpenRedBase();
    const std::string inRoom = "36:You are in a room already.;~";
    Step("taken", cid, Creates(cid, "Red Base"), {"", "", "17:~"});
    Step("taken in other letters", cid, Creates(cid, "RED base"), {"", "", "17:~"});
    Step("from a room", bob, Creates(bob, "Other"), {"", inRoom + "17:~"});
    Step("into a second room", bob, Asks(bob, "Red Base"), {"", inRoom + "18:~"});
    Step("preview from a room", bob, Previews(bob, "Red Base"), {"", inRoom});
    Step("not seen from another lobby", eve, Asks(eve, "Red Base"), {"", "", "", "", "19:~"});
    eve.Says(Creates(eve, "Red Base"));
    EXPECT_THAT(eve.Reads(), testing::StartsWith("5:eve;")) << "free in another lobby";
    cid.Says(Creates(cid, "Two"));
    dan.Says(Creates(dan, "Three"));
    Client& fay = InLobby("fay");
    fay.Says(Creates(fay, "Four"));
    EXPECT_EQ(fay.Reads(), "36:There are too many rooms in this lobby.;~17:~");
    fay.Says(client_message::LeaveLobby(fay.Record("Go")));
    fay.Reads();
    fay.Says(Creates(fay, "Four") + Asks(fay, "Two"));
    EXPECT_EQ(fay.Reads(), "36:You are in no lobby.;~17:~36:You are in no lobby.;~18:~");
}

TEST_F(RoomTest, TheDoorOfARoomHasOneRuleAfterTheOther) {
    ann.Says(Creates(ann, "Vault", "3", "1", "Secret9"));
    ForgetAllRead();
    const std::string bobIn = "13:2:bob;Vault;10.0.0.1;~", bobOut = "13:1:bob;Vault;10.0.0.1;~";
    const std::string cidIn = "13:2:cid;Vault;10.0.0.1;~";
    Step("asked for the password", bob, Asks(bob, "Vault", "Y"), {"", "34:~"});
    Step("wrong", bob, Answers(bob, "Vault", "Wrong9"), {"", "33:~"});
    Step("right, and his address stays public", bob, Answers(bob, "Vault", "Secret9"),
         All(bobIn, {"3:bob;10.0.0.1;Y;~", "3:ann;10.0.0.1;N;bob;10.0.0.1;Y;~7:ann;~"}));
    Step("right at once, no word about his address", cid, Answers(cid, "Vault", "Secret9"),
         All(cidIn,
             {"3:cid;10.0.0.1;N;~", "3:cid;10.0.0.1;N;~", "3:ann;10.0.0.1;N;bob;10.0.0.1;Y;cid;10.0.0.1;N;~7:ann;~"}));
    Step("full comes before the password", dan, Asks(dan, "Vault"), {"", "", "", "18:~"});
    Step("a member rejects nobody", cid, Rejects(cid, "Vault", "bob"),
         {"", "", "36:Only its creator can reject users from a room.;~"});
    Step("a creator does not reject himself", ann, Rejects(ann, "Vault", "ANN"), {"36:You cannot reject yourself.;~"});
    Step("who is not there is not rejected", ann, Rejects(ann, "Vault", "dan"), {});
    Step("rejected, in other letters", ann, Rejects(ann, "vault", "BOB"),
         {bobOut + "8:bob;~", bobOut + "42:~", bobOut + "8:bob;~", bobOut});
    Step("rejected once more", ann, Rejects(ann, "Vault", "bob"), {});
    Step("banned comes before all others", bob, Answers(bob, "Vault", "Secret9"), {"", "43:~"});
    bob.Says(client_message::Closing());
    Client& again = LoggedOn("bob");
    again.Enters("Go");
    again.Reads();
    again.Says(Asks(again, "Vault"));
    EXPECT_EQ(again.Reads(), "43:~") << "a new logon changes nothing";
    EXPECT_THAT(log.text, Not(testing::AnyOf(HasSubstr("Secret9"), HasSubstr("Wrong9"))));

    Client& fay = InLobby("fay");
    fay.Says(Creates(fay, "Key without a password", "4", "1", ""));
    dan.Says(Asks(dan, "Key without a password"));
    EXPECT_THAT(dan.Reads(), HasSubstr("7:fay;~")) << "locked, yet nothing to ask for";
}

TEST_F(RoomTest, HoweverOneLeavesHisRoomLearnsOfIt) {
    const std::string left = "13:1:fay;R;10.0.0.1;~", ended = "13:1:fay;R;10.0.0.1;1:bob;R;10.0.0.1;~11:R;~";
    const std::string goes = client_message::LeaveLobby("fay;Go;1"), bye = client_message::Closing();
    const struct {
        const char* what;
        std::string says;   ///< empty: the connection ends
        std::string hears;  ///< the one who leaves, a member; nothing when he has gone
        std::string behind; ///< what follows for the others
    } kWays[] = {
        {"leaves the room", client_message::LeaveRoom("fay;Go;1", "R"), "9:~*", ""},
        {"leaves the lobby", goes, "9:~*49:fay;Go;0;~22:Go,4;Chess,1;~", "15:fay;~49:fay;Go;0;~"},
        {"says goodbye", bye, "", "15:fay;~49:fay;Go;1;~"},
        {"goes without a word", "", "", "15:fay;~49:fay;Go;1;~"},
    };
    for (const auto& way : kWays) {
        for (const bool creator : {false, true}) {
            Client& fay = InLobby("fay");
            Client& host = creator ? fay : ann;
            host.Says(Creates(host, "R"));
            bob.Says(Asks(bob, "R"));
            if (!creator) fay.Says(Asks(fay, "R"));
            ForgetAllRead();
            Says(fay, way.says);

            const std::string toAll = creator ? ended : left;
            std::string hears = way.hears;
            if (!hears.empty()) hears.replace(3, 1, (creator ? "10:~" : "") + toAll);
            EXPECT_EQ(fay.Reads(), hears) << way.what;
            EXPECT_EQ(bob.Reads(), (creator ? "10:~" : "8:fay;~") + toAll + way.behind) << way.what;
            EXPECT_EQ(cid.Reads(), toAll + way.behind) << way.what;
            if (fay.session != nullptr) Disconnects(fay);
            ann.Says(Destroys(ann, "R"));
            ForgetAllRead();
        }
    }
}

TEST_F(RoomTest, APreviewTakesOldNamesOffTheListFirst) {
    OpenRedBase();
    cid.Says(Creates(cid, "Key"));
    ForgetAllRead();
    const std::string annAndBob = "3:ann;10.0.0.1;N;bob;10.0.0.1;N;~";
    Step("first", dan, Previews(dan, "Red Base"), {"", "", "", annAndBob});
    Step("again", dan, Previews(dan, "Red Base"), {"", "", "", "8:ann;~8:bob;~" + annAndBob});
    Step("another", dan, Previews(dan, "Key"), {"", "", "", "8:ann;~8:bob;~3:cid;10.0.0.1;N;~"});
    Client& fay = InLobby("fay");
    fay.Says(Asks(fay, "Red Base") + Leaves(fay, "Red Base")); // not what dan looks at
    fay.Says(Asks(fay, "Key") + Leaves(fay, "Key"));
    fay.Says(Asks(fay, "Key") + Leaves(fay, "Key"));
    ForgetAllRead();
    dan.Says(Previews(dan, "Red Base"));
    EXPECT_EQ(dan.Reads(), "8:cid;~8:fay;~" + annAndBob) << "who came since, though he has gone";
    dan.Says(Asks(dan, "Key"));
    EXPECT_THAT(dan.Reads(), testing::StartsWith("8:ann;~8:bob;~3:cid;10.0.0.1;N;dan;10.0.0.1;N;~7:cid;~"));
}

TEST_F(RoomTest, WhatALongLookAtARoomRemembersIsBounded) {
    OpenRedBase();
    dan.Says(Previews(dan, "Red Base"));
    constexpr std::size_t kVisitors = 200;
    std::size_t most = 0;
    std::string heard;
    for (std::size_t i = 0; i < kVisitors; ++i) {
        Client& visitor = InLobby("v" + std::to_string(i));
        visitor.Says(Asks(visitor, "Red Base") + Leaves(visitor, "Red Base"));
        heard += dan.Reads();
        most = std::max(most, dan.session->shown.names.size());
        Disconnects(visitor);
    }
    EXPECT_LE(most, 2U * kMostRoomUsers);
    dan.Says(Previews(dan, "Red Base"));
    heard += dan.Reads();
    for (std::size_t i = 0; i < kVisitors; ++i) EXPECT_THAT(heard, HasSubstr("8:v" + std::to_string(i) + ";~"));
}

TEST_F(RoomTest, WhoWritesTooFastIsHeardAtTheAllowedRateOfEachKindAndToldOnce) {
    OpenRedBase();
    const std::string record = ann.Record("Go"),
                      told = "36:You are writing too fast. Your lines are not sent for a moment.;~";
    const std::pair<std::string, std::string> kKinds[] = {
        {client_message::LobbyLine(record, "x"), "1:ann:x:;~"},
        {Writes(ann, "Red Base", "x"), "4:ann:x:;~"},
        {client_message::PrivateMessage(record, "bob", "x"), "35:ann;ann:x:;~"},
    };
    for (const auto& [says, heard] : kKinds) {
        for (int i = 0; i < 20; ++i) ann.Says(says);
        std::string eight;
        for (int i = 0; i < 8; ++i) eight += heard;
        EXPECT_EQ(ann.Reads(), eight + told);
        EXPECT_EQ(bob.Reads(), eight);
    }
    clock.Turn(Milliseconds(500));
    for (int i = 0; i < 5; ++i) ann.Says(kKinds[0].first);
    EXPECT_EQ(bob.Reads(), "1:ann:x:;~") << "two a second";
    EXPECT_EQ(ann.Reads(), "1:ann:x:;~" + told) << "a line had passed, so the next that does not is told again";
    bob.Says(client_message::LobbyLine(bob.Record("Go"), "z"));
    EXPECT_EQ(ann.Reads(), "1:bob:z:;~") << "each sender has his own limit";
    ann.Says(client_message::LeaveLobby(record));
    EXPECT_THAT(ann.Reads(), HasSubstr("22:")) << "leaving is never limited";
}

} // namespace ombrin::server::test

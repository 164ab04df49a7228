#include "room_world.h"

namespace ombrin::server::test {

using testing::HasSubstr;

/// ann's room "Red Base" with bob in it; cid and dan are in the lobby, and eve in another.
struct GameTest : RoomTest {
    GameTest() { OpenRedBase(); }

    static std::string Launches(const Client& user) { return client_message::Launch(user.Record("Go"), "Red Base"); }
    static std::string Returns(const Client& user, const std::string& room = "Red Base") {
        return client_message::BackFromGame(user.Record("Go"), room);
    }
    static std::string Status(const std::string& status, const std::string& user, const std::string& room) {
        return "13:" + status + ":" + user + ";" + room + ";10.0.0.1;~";
    }
    static std::string InRoom(const std::string& status, const std::string& user) {
        return Status(status, user, "Red Base");
    }
    static std::string Base(const std::string& status, const std::string& users = "2") {
        return "Red Base;" + status + ";10.0.0.1;" + users + ";4;~";
    }
    void Launch() {
        ann.Says(Launches(ann));
        ForgetAllRead();
    }

    const std::string started = "14:" + Base("2") + "13:3:ann;Red Base;10.0.0.1;3:bob;Red Base;10.0.0.1;~";
    const std::string launch = "12:10.0.0.1;~";
    const std::string both = "3:ann;10.0.0.1;N;bob;10.0.0.1;N;~";
    const std::string open = "14:" + Base("1");
};

TEST_F(GameTest, ALaunchUntilAllAreBackAndAnother) {
    const std::string annBack = InRoom("5", "ann");
    const std::string bobBack = InRoom("5", "bob");
    const std::string oldNames = "8:ann;~8:bob;~";
    Step("from outside", dan, Launches(dan), {"", "", "", "36:You are in no room.;~"});
    Step("by a member", bob, Launches(bob), {"", "36:Only its creator can launch a room's game.;~"});
    Step("back from no game", bob, Returns(bob), {"", "36:You are in no game.;~"});
    Step("launch", ann, Launches(ann), {started + launch, started + launch, started, started});
    Step("closed while it runs", cid, Asks(cid, "Red Base"), {"", "", "18:~"});
    Step("yet to be looked at", cid, Previews(cid, "Red Base"), {"", "", both});
    Step("the first is back", ann, Returns(ann, "not the room"),
         {"0:ann;2;bob;3;cid;1;dan;1;~2:" + Base("2") + oldNames + both + annBack, "", annBack, annBack});
    Step("a second launch, with bob still in the game", ann, Launches(ann), {started + launch, "", started, started});
    Step("and by mistake from inside it", ann, Launches(ann), {"", "", started, started});
    Step("bob is back", bob, Returns(bob),
         {"", "0:ann;3;bob;2;cid;1;dan;1;~2:" + Base("2") + oldNames + both + bobBack, bobBack, bobBack});
    Step("ann, too", ann, Returns(ann),
         {"0:ann;2;bob;2;cid;1;dan;1;~2:" + Base("2") + oldNames + both + annBack + open, annBack + open,
          annBack + open, annBack + open});
    Step("a third", ann, Launches(ann), {started + launch, started + launch, started, started});
    bob.Says(Returns(bob));
    ann.Says(Returns(ann));
    cid.Says(Asks(cid, "Red Base"));
    EXPECT_THAT(cid.Reads(), HasSubstr("7:ann;~")) << "open again";
}

TEST_F(GameTest, WhoJoinsARunningGameIsInItUntilHeIsBack) {
    Launch();
    const std::string joins = client_message::JoinRunningGame();
    const std::string in = Status("3", "cid", "");
    const std::string back = Status("1", "cid", "");
    const std::string playing = "36:You are in a game.;~";
    Step("from a room", bob, joins, {"", "36:You are in a room already.;~"});
    Step("of another kind", cid, "Ombrin:29:4;:~", {"", "", "36:The server cannot read this request.;~"});
    Step("join", cid, joins, {"", "", "", in});
    Step("once more", cid, joins, {"", "", "36:You are in a game already.;~"});
    Step("a room of his own", cid, Creates(cid, "Own"), {"", "", playing + "17:~"});
    Step("another's room", cid, Asks(cid, "Red Base"), {"", "", playing + "18:~"});
    Step("a look at it", cid, Previews(cid, "Red Base"), {"", "", playing});
    Step("back", cid, Returns(cid, ""), {"", "", "0:ann;3;bob;3;cid;1;dan;1;~2:" + Base("2") + back, back});

    cid.Says(Creates(cid, "Own"));
    dan.Says(Previews(dan, "Own") + joins);
    Client& fay = InLobby("fay");
    fay.Says(Asks(fay, "Own"));
    dan.Says(Returns(dan, ""));
    dan.Reads();
    dan.Says(Previews(dan, "Own"));
    EXPECT_EQ(dan.Reads(), "8:cid;~3:cid;10.0.0.1;N;fay;10.0.0.1;N;~") << "who came meanwhile is not on the list";
}

TEST_F(GameTest, HoweverOneLeavesHisRoomInAGameTheOthersSeeItInOrder) {
    // Each way begins with the same users in the same order.
    const auto begins = [&](bool annIsBack) {
        clock.Turn(Milliseconds(5'000)); // arriving has its price
        for (Client* user : {&ann, &bob, &cid, &dan}) {
            if (user->session != nullptr) Disconnects(*user);
            user->closed = false;
            user->session = &service.Connected(*user, {"10.0.0.1", "10.0.0.1", "10.0.0.9"});
            user->LogsOn();
            user->Enters("Go");
        }
        OpenRedBase();
        Launch();
        if (annIsBack) ann.Says(Returns(ann));
        ForgetAllRead();
    };
    const std::string bobPlays = Status("3", "bob", ""), bobOut = InRoom("1", "bob") + bobPlays;
    const std::string one = "14:" + Base("1", "1"), ended = "13:1:ann;Red Base;10.0.0.1;1:bob;Red Base;10.0.0.1;~";
    const std::string left = "49:bob;Go;0;~", bobGone = "49:bob;Go;1;~", annGone = "49:ann;Go;1;~";
    begins(false);
    Step("leaves, his creator plays on", bob, Leaves(bob, "Red Base"), {"", "9:~", bobOut, bobOut});
    begins(true);
    Step("leaves as the last", bob, Leaves(bob, "Red Base"),
         {"8:bob;~" + bobOut + one, "9:~", bobOut + one, bobOut + one});
    begins(true);
    Step("is rejected as the last", ann, Rejects(ann, "Red Base", "bob"),
         {bobOut + "8:bob;~" + one, "42:~", bobOut + one, bobOut + one});
    begins(true);
    const std::string seen = bobOut + one + "15:bob;~" + left;
    Step("leaves the lobby", bob, client_message::LeaveLobby(bob.Record("Go")),
         {"8:bob;~" + seen, "9:~" + left + "22:Go,3;Chess,1;~", seen, seen, left});
    begins(true);
    const std::string vanished = InRoom("1", "bob") + one + "15:bob;~" + bobGone;
    Step("has gone", bob, "", {"8:bob;~" + vanished, "", vanished, vanished, bobGone});
    begins(true);
    const std::string over = ended + bobPlays + "11:Red Base;~";
    Step("destroys it", ann, Destroys(ann, "Red Base"), {"10:~" + over, "10:~", over, over});
    begins(false);
    Step("its creator has gone", ann, "",
         {"", "10:~" + annGone, over + "15:ann;~" + annGone, over + "15:ann;~" + annGone, annGone});
}

TEST_F(GameTest, AClientInAGameHearsLinesAndGetsItsListsWhenItIsBack) {
    Launch();
    cid.Says(Creates(cid, "Own", "4", "1") + Launches(cid));
    dan.Reads();
    cid.Says(Returns(cid));
    EXPECT_EQ(dan.Reads(), Status("5", "cid", "Own") + "14:Own;4;10.0.0.1;1;4;~")
        << "a locked room shows its key again";
    dan.Says(Asks(dan, "Own") + Leaves(dan, "Own"));
    cid.Says(Destroys(cid, "Own"));
    Client& fay = LoggedOn("fay");
    fay.Enters("Go");
    fay.Says(client_message::LobbyLine(fay.Record("Go"), "hi") + client_message::Closing());
    bob.Says(Leaves(bob, "Red Base"));
    EXPECT_EQ(ann.Reads(), "48:fay;Go;~1:fay:hi:;~49:fay;Go;1;~");
    ann.Says(Returns(ann));
    EXPECT_EQ(ann.Reads(), "0:ann;2;bob;3;cid;1;dan;1;~2:" + Base("2", "1") + "8:ann;~8:bob;~3:ann;10.0.0.1;N;~" +
                               InRoom("5", "ann") + "14:" + Base("1", "1"));
}

TEST_F(GameTest, WhoWentFromTheLobbyInAGameComesBackToNone) {
    Launch();
    bob.Says(client_message::LeaveLobby(bob.Record("Go")));
    ForgetAllRead();
    bob.Enters("Chess", "rook");
    EXPECT_EQ(bob.Reads(), "21:Chess;~47:ann;bob;cid;dan;eve;~1:Ardvelle:Be nice%*|@ please:;~48:bob;Chess;~");
    EXPECT_EQ(eve.Reads(), "0:bob;3;~48:bob;Chess;~");
    bob.Says(Returns(bob));
    EXPECT_EQ(bob.Reads(), "0:eve;1;bob;1;~2:~" + Status("1", "bob", ""));
    bob.Says(client_message::JoinRunningGame() + client_message::LeaveLobby(bob.Record("Chess")));
    bob.Reads();
    bob.Says(Returns(bob) + client_message::JoinRunningGame());
    EXPECT_EQ(bob.Reads(), "36:You are in no lobby.;~");
}

} // namespace ombrin::server::test

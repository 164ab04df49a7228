// The end of a connection and the way back, and what a change of lobby leaves running.
#include "support/played_client.h"

#include "controls/user_input.h"

namespace ombrin::test {

namespace {

struct Connected : PlayedClient, testing::Test {
    Connected() { LogsOn(); }
};

} // namespace

TEST_F(Connected, ALostConnectionLeavesTheViewAndCloseSocketLogsOnAnew) {
    Sends("2:Arena;1;10.0.0.9;3;8;~41:bob;Go;~1:bob:hello:;~");
    Chooses(view.UserList, 1, view.IgnoreUser);
    Presses(view.Enter);
    Sends("3:bob;10.0.0.9;Y;ann;10.0.0.5;N;~7:bob;~");
    HangsUp();
    EXPECT_EQ(Top(), "");
    EXPECT_EQ(view.UserList.rows.Count(), 3u);
    bool connected = true;
    Do([&] { connected = client.IsSocketConnected(); });
    EXPECT_EQ(BoxText(), "Socket Connection lost.");
    Answers(BoxResult::Ok);
    EXPECT_FALSE(connected || view.Enabled());

    Do([this] { client.CloseSocket(); });
    EXPECT_EQ(Top(), "UsrNmPwIP");
    EXPECT_EQ(forms.UsrNmPwIP.LogonName.Text(), "ann") << "the dialog keeps what was typed";
    for (const RowList* rows : {&view.lbLobbies.rows, &view.lbAllUsers.rows, &view.UserList.rows, &view.RoomList.rows,
                                &view.RoomUserList.rows, &view.BuddyLV.rows})
        EXPECT_EQ(rows->Count(), 0u);
    EXPECT_EQ(Chat().size(), 0u);
    EXPECT_TRUE(view.Create.Enabled() && view.Enter.Enabled());
    EXPECT_FALSE(view.Leave.Enabled() || view.Destroy.Enabled() || view.Launch.Enabled());
    Types(forms.UsrNmPwIP.LogonName, "eve");
    Types(forms.UsrNmPwIP.HostMachine, "elsewhere.example");
    Presses(forms.UsrNmPwIP.Connect);
    EXPECT_EQ(Server().RemoteHost, "lobby.example") << "the host of the last connection";
    EXPECT_NE(world.LogText().find("attempting to connect to the server in routine UserLoggedOff.  Local port: "),
              std::string::npos);
    const auto before = Server().sent.size();
    Accepts();
    ASSERT_EQ(Server().sent.size(), before + 1);
    EXPECT_EQ(Server().sent.back(), "Ombrin:15:eve;temp;192.0.2.10;pw;:~");
    Sends("45:10.0.0.5;~22:Go,1;Chess,2;~0:eve;1;bob;1;~1:bob:heard:;~");
    EXPECT_TRUE(view.Enabled());
    EXPECT_EQ(Chat(), std::vector<std::string>{"bob: heard"}) << "nobody is ignored any more";
}

TEST_F(Connected, ACancelledReturnTakesTheDialogsHostAndAClosedDialogEnds) {
    HangsUp();
    Do([this] { client.CloseSocket(); });
    Presses(forms.UsrNmPwIP.Connect);
    EXPECT_EQ(Top(), "Connection");
    Presses(forms.Connection.CancelButton);
    Types(forms.UsrNmPwIP.HostMachine, "elsewhere.example");
    Presses(forms.UsrNmPwIP.Connect);
    EXPECT_EQ(Server().RemoteHost, "elsewhere.example");
    Presses(forms.Connection.CancelButton);
    Presses(forms.UsrNmPwIP.CloseButton);
    EXPECT_TRUE(closeClientRaised);
}

TEST_F(Connected, CloseSocketUnderAnOpenLogonDialogLeavesItToThatDialog) {
    HangsUp();
    Do([this] { client.CloseSocket(); });
    Types(forms.UsrNmPwIP.LogonName, "half");
    Do([this] { client.CloseSocket(); });
    EXPECT_EQ(Top(), "UsrNmPwIP");
    EXPECT_EQ(Server().State(), SocketState::Closed) << "nothing connects with what is half typed";
    Presses(forms.UsrNmPwIP.Connect);
    Accepts();
    Sends("24:~");
    Answers(BoxResult::Ok);
    EXPECT_EQ(Top(), "UsrNmPwIP") << "refused, the connection stays";
    Do([this] { client.CloseSocket(); });
    Types(forms.UsrNmPwIP.LogonName, "ann");
    Presses(forms.UsrNmPwIP.Connect);
    Accepts();
    EXPECT_EQ(Server().sent.back(), "Ombrin:15:ann;temp;192.0.2.10;pw;:~") << "over a new one";
    Sends("45:10.0.0.5;~22:Go,1;~0:ann;1;~");
    EXPECT_EQ(Top(), "");
    EXPECT_TRUE(view.Enabled());
}

TEST_F(Connected, CloseSocketUnderADialogThatAsksAgainLeadsToOneNewConnection) {
    using Way = void (*)(PlayedClient&);
    const std::pair<const char*, Way> kWays[] = {
        {"a refused logon",
         [](PlayedClient& c) {
             c.Sends("24:~");
             c.Answers(BoxResult::Ok);
         }},
        {"a refused account, given up",
         [](PlayedClient& c) {
             c.Sends("31:~");
             c.Answers(BoxResult::Ok);
             c.Presses(c.forms.CreateAccount.Cancel);
         }},
        {"a host that asks for it", [](PlayedClient& c) { c.Do([&] { c.client.DisplayLogonBanner(); }); }},
    };
    for (const auto& [name, leadToTheDialog] : kWays) {
        SCOPED_TRACE(name);
        PlayedClient other;
        other.LogsOn();
        leadToTheDialog(other);
        other.Do([&] { other.client.CloseSocket(); });
        EXPECT_EQ(other.Top(), "UsrNmPwIP");
        EXPECT_EQ(other.view.UserList.rows.Count(), 0u) << "what the next lobby fills again";
        const int before = other.Server().connects;
        other.Presses(other.forms.UsrNmPwIP.Connect);
        EXPECT_EQ(other.Server().connects, before + 1);
        other.Accepts();
        EXPECT_EQ(other.Server().sent.back(), "Ombrin:15:ann;temp;192.0.2.10;pw;:~");
    }
}

TEST_F(Connected, CloseSocketUnderARepeatedLogonOfAnEmbeddedClientConnectsOnce) {
    PlayedClient other;
    other.HasChosen();
    other.Shows("bob;Go;10.0.0.1;80");
    other.Accepts();
    other.Sends("24:~");
    other.Answers(BoxResult::Ok);
    other.Connects();
    EXPECT_EQ(other.Top(), "Connection");
    other.Do([&] { other.client.CloseSocket(); });
    other.Presses(other.forms.UsrNmPwIP.Connect);
    EXPECT_EQ(other.Server().connects, 2);
}

TEST_F(Connected, ANewLogonWhileStillConnectingTakesTheWaitAway) {
    HangsUp();
    Do([this] { client.CloseSocket(); });
    Presses(forms.UsrNmPwIP.Connect);
    EXPECT_EQ(Top(), "Connection");
    Do([this] { client.CloseSocket(); });
    EXPECT_EQ(Top(), "UsrNmPwIP");
    Presses(forms.UsrNmPwIP.Connect);
    Accepts();
    EXPECT_EQ(Top(), "") << "no box of the first try";
}

TEST_F(Connected, WhatWaitsInADialogSendsNothingInTheNextConnection) {
    Sends("2:Arena;1;10.0.0.9;3;8;~");
    Presses(view.Create);
    Types(forms.NewRoom.NewRoomName, "Base");
    Do([this] { client.CloseSocket(); });
    Connects();
    Accepts();
    Sends("45:10.0.0.5;~22:Go,1;~0:ann;1;~");
    EXPECT_EQ(Top(), "NewRoom");
    const auto before = Server().sent.size();
    Presses(forms.NewRoom.OKButton);
    EXPECT_EQ(Server().sent.size(), before);
    EXPECT_EQ(Marks().m_CurrentRoom, "");
    EXPECT_TRUE(view.Enabled());
}

TEST_F(Connected, ThePreviewIsCleanedUpInTheNextLobbyToo) {
    DoubleClicks(view.lbLobbies, 1);
    EXPECT_FALSE(view.CleanUpTimer.On());
    Sends("22:Go,1;Chess,2;~0:ann;1;~2:Arena;1;10.0.0.9;3;8;~");
    EXPECT_TRUE(view.CleanUpTimer.On());
    Selects(view.RoomList, 0);
    Sends("3:bob;10.0.0.9;Y;~11:Arena;~");
    EXPECT_EQ(view.RoomUserList.rows.Count(), 1u);
    Passes(Milliseconds(5000));
    EXPECT_EQ(view.RoomUserList.rows.Count(), 0u);
}

} // namespace ombrin::test

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
    EXPECT_EQ(view.UserList.rows.Count(), 3u);
    bool connected = true;
    Do([&] { connected = client.IsSocketConnected(); });
    IsTold("Socket Connection lost.");
    EXPECT_FALSE(connected || view.Enabled());

    Do([this] { client.CloseSocket(); });
    EXPECT_EQ(Top(), "UsrNmPwIP");
    EXPECT_EQ(forms.UsrNmPwIP.LogonName.Text(), "ann") << "the dialog keeps what was typed";
    for (const RowList* rows : {&view.lbLobbies.rows, &view.lbAllUsers.rows, &view.UserList.rows, &view.RoomList.rows,
                                &view.RoomUserList.rows, &view.BuddyLV.rows})
        EXPECT_EQ(rows->Count(), 0u);
    EXPECT_TRUE(view.Create.Enabled() && view.Enter.Enabled());
    EXPECT_FALSE(view.Leave.Enabled() || view.Destroy.Enabled() || view.Launch.Enabled());
    Types(forms.UsrNmPwIP.LogonName, "eve");
    Types(forms.UsrNmPwIP.HostMachine, "elsewhere.example");
    Presses(forms.UsrNmPwIP.Connect);
    EXPECT_EQ(Server().RemoteHost, "lobby.example") << "the host of the last connection";
    Accepts();
    EXPECT_EQ(Server().sent.back(), "Ombrin:15:eve;temp;192.0.2.10;pw;:~");
    Sends("45:10.0.0.5;~22:Go,1;Chess,2;~0:eve;1;bob;1;~1:bob:heard:;~");
    EXPECT_TRUE(view.Enabled());
    EXPECT_EQ(Chat(), std::vector<std::string>{"bob: heard"}) << "nobody is ignored any more";
}

TEST_F(Connected, ACancelledReturnTakesTheDialogsHostAndAClosedDialogEnds) {
    HangsUp();
    Do([this] { client.CloseSocket(); });
    Presses(forms.UsrNmPwIP.Connect);
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
    EXPECT_EQ(Server().sent.back(), "Ombrin:15:half;temp;192.0.2.10;pw;:~");
    EXPECT_EQ(Top(), "");
}

TEST_F(Connected, CloseSocketUnderADialogThatAsksAgainLeadsToOneNewConnection) {
    const std::pair<const char*, std::function<void()>> kWays[] = {
        {"a refused logon", [&] { Sends("24:~"); }},
        {"a refused account, given up", [&] { Sends("31:~"); }},
        {"a host that asks for it", [&] { Do([&] { client.DisplayLogonBanner(); }); }},
    };
    for (const auto& [name, leadToTheDialog] : kWays) {
        SCOPED_TRACE(name);
        leadToTheDialog();
        if (Top() == "MessageBox") Answers(BoxResult::Ok);
        if (Top() == "CreateAccount") Presses(forms.CreateAccount.Cancel);
        Do([&] { client.CloseSocket(); });
        EXPECT_EQ(Top(), "UsrNmPwIP");
        EXPECT_EQ(view.UserList.rows.Count(), 0u) << "what the next lobby fills again";
        const int before = Server().connects;
        Presses(forms.UsrNmPwIP.Connect);
        EXPECT_EQ(Server().connects, before + 1);
        Accepts();
        EXPECT_EQ(Server().sent.back(), "Ombrin:15:ann;temp;192.0.2.10;pw;:~");
        Sends("45:10.0.0.5;~22:Go,1;~0:ann;1;~");
    }
}

TEST(Embedded, CloseSocketUnderARepeatedLogonConnectsOnce) {
    PlayedClient client;
    client.HasChosen();
    client.Shows("bob;Go;10.0.0.1;80");
    client.Accepts();
    client.Refuses("24:~");
    client.Connects();
    client.Do([&] { client.client.CloseSocket(); });
    client.Presses(client.forms.UsrNmPwIP.Connect);
    EXPECT_EQ(client.Server().connects, 2);
}

TEST_F(Connected, ANewLogonWhileStillConnectingTakesTheWaitAway) {
    for (int logon = 0; logon < 2; ++logon) {
        Do([this] { client.CloseSocket(); });
        Presses(forms.UsrNmPwIP.Connect);
    }
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

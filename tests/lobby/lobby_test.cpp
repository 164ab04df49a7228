// The lobby world: the list of lobbies and the moves between them, its users, its chat, ignored users.
#include "support/played_client.h"

#include "lobby/text_colour.h"

namespace ombrin::test {

using testing::StartsWith;

namespace {

using Rows = std::vector<std::string>;

struct InLobby : PlayedClient, testing::Test {
    InLobby() { LogsOn(); }

    int Image(const std::string& user) { return view.UserList.rows.Image(view.UserList.rows.Find(user)); }
    std::optional<Colour> ColourOf(const std::string& user) {
        return view.UserList.rows.RowColour(view.UserList.rows.Find(user));
    }
};

/// From the start to the list of the lobbies, which the server has not sent yet.
struct BeforeLobby : PlayedClient, testing::Test {
    void LogsOnBefore(const std::string& displayed) {
        HasChosen(displayed);
        Shows();
        LogsOnAnew();
    }
    void LogsOnAnew() {
        Connects();
        Accepts();
        Heard();
    }
};

} // namespace

TEST_F(BeforeLobby, TheFirstRunChoosesTheLobbiesAndThereIsNoWayOutWithoutAChoice) {
    LogsOnBefore("");
    Sends("45:10.0.0.5;~22:Chess,3;Go,12;~0:ann;1;~");
    LobbyFilter& filter = forms.LobbyFilter;
    EXPECT_EQ(Top(), "LobbyFilter");
    Presses(filter.OK);
    EXPECT_EQ(filter.StatusBar1.Text(), "At leat one game must be selected.");
    Closes(filter);
    EXPECT_EQ(filter.StatusBar1.Text(), "At least one game must be selected and you must press OK.");
    Presses(filter.SelectAll);
    Selects(filter.GameList, 0, false);
    Presses(filter.OK);
    EXPECT_EQ(Heard(), "Ombrin:2:ann;Go;10.0.0.5;;:~");
    EXPECT_EQ(Texts(view.lbLobbies.rows), Rows{"Go : 12"});
    EXPECT_EQ(client.Inis().Read("AV.ini", "GameFilter", "DisplayedGames"), "Go;");
    EXPECT_TRUE(view.Enabled()) << "the rest of the arrival was handled behind the dialog";
    EXPECT_EQ(world.Told("sound"), Rows{"EnterLobby2"});
}

TEST_F(BeforeLobby, TheFirstChoiceIsMadeFromTheListThatCameLastAlsoAfterANewLogonUnderIt) {
    LogsOnBefore("");
    Sends("45:10.0.0.5;~22:Chess,3;Go,12;~22:Go,4;~");
    Do([&] { client.CloseSocket(); });
    LogsOnAnew();
    Sends("45:10.0.0.5;~22:Go,5;Quake,1;~");
    EXPECT_EQ(Top(), "LobbyFilter");
    EXPECT_EQ(Texts(forms.LobbyFilter.GameList.rows), (Rows{"Go", "Quake"}));
    Selects(forms.LobbyFilter.GameList, 0);
    Presses(forms.LobbyFilter.OK);
    EXPECT_EQ(Heard(), "Ombrin:2:ann;Go;10.0.0.5;;:~");
    EXPECT_EQ(Heard(), "") << "the lists of the old connection have no answer";
    EXPECT_EQ(Texts(view.lbLobbies.rows), Rows{"Go : 5"});
}

TEST_F(BeforeLobby, AFilterShowsExactNamesInTheServersOrderAndAnUnclosedItemIsNotSeen) {
    LogsOnBefore("Go;");
    const std::pair<const char*, Rows> kCases[] = {
        {"Go;", {"Go : 1"}}, {"Half Life;go;", {"go : 3", "Half Life : 4"}}, {"Half Life;Go", {"Half Life : 4"}}};
    for (const auto& [displayed, rows] : kCases) {
        HasChosen(displayed);
        view.lbLobbies.Clear();
        Sends("22:Go,1;Goban,2;go,3;Half Life,4;~");
        EXPECT_EQ(Texts(view.lbLobbies.rows), rows) << displayed;
    }
}

TEST_F(BeforeLobby, WithoutADisplayedLobbyTheChoiceFailsAndNothingIsSent) {
    LogsOnBefore("Nosuch;");
    Sends("22:Go,1;~");
    IsTold(StartsWith("Error: occured in module SwitchLobbies().  Error number: 5,"));
    EXPECT_EQ(Heard(), "");
    EXPECT_EQ(Marks().m_UserData, "ann;temp;192.0.2.10");
}

TEST_F(BeforeLobby, ARefusedPasswordAsksForLobbyAndPasswordUntilTheServerIsContent) {
    LogsOnBefore("Go;");
    Sends("45:10.0.0.5;~22:Go,1;~");
    Heard();
    Sends("46:Go,1;Half Life,2;~");
    ExeMainLobby& dialog = forms.ExeMainLobby;
    EXPECT_EQ(dialog.StatusBar.Text(), "Invalid lobby password");
    EXPECT_TRUE(dialog.Password.HasFocus());
    Selects(dialog.ExeGameList, 1);
    EXPECT_EQ(dialog.StatusBar.Text(), "Ready");
    for (const char* bad : {"a:b", "a;b", "a~b"}) {
        Types(dialog.Password, bad);
        Presses(dialog.ExeGameSelect);
        EXPECT_EQ(dialog.StatusBar.Text(), "Invalid lobby password");
    }
    Types(dialog.Password, "wrong");
    DoubleClicks(dialog.ExeGameList, 1);
    EXPECT_EQ(Heard(), "Ombrin:2:ann;Half Life;10.0.0.5;;:~") << "the click of a double click empties the box";
    Sends("46:Half Life,3;~");
    EXPECT_EQ(Texts(dialog.ExeGameList.rows), Rows{"Half Life : 3"});
    Ticks(dialog.RememberPasswords, true);
    Types(dialog.Password, "sesame");
    Key(dialog.Password, UserInput::kEnter);
    EXPECT_EQ(Heard(), "Ombrin:2:ann;Half Life;10.0.0.5;sesame;:~");
    EXPECT_EQ(client.Store().GetSetting("Lobby Passwords", "Half Life"), "sesame");
    Sends("46:~");
    EXPECT_EQ(Texts(dialog.ExeGameList.rows), Rows{"Half Life : 3"}) << "an empty list leaves the rows";
    EXPECT_EQ(dialog.Password.Text(), "sesame") << "remembered";
    Presses(dialog.ExeGameSelect);
    Sends("0:ann;1;~");
    EXPECT_TRUE(view.Enabled());
    EXPECT_EQ(Texts(view.lbLobbies.rows), Rows{"Go : 1"}) << "a refusal clears nothing";
}

TEST_F(InLobby, CountsFollowWhoComesAndGoes) {
    const std::pair<const char*, Rows> kCases[] = {
        {"48:Bea;Go;~48:bob;;~", {"Go : 2", "Chess : 2"}},
        {"49:cid;Go;0;~", {"Go : 1", "Chess : 2"}},
        {"49:bob;Go;1;~", {"Go : 0", "Chess : 2"}},
        {"49:eve;Go;1;~", {"Go : -1", "Chess : 2"}},
        {"48:dan; Chess ;~", {"Go : -1", "Chess : 3"}},
        {"48:dan;go;~48:dan;G;~", {"Go : -1", "Chess : 3"}},
        {"48:;Go;~", {"Go : -1", "Chess : 3"}},
    };
    Selects(view.lbLobbies, 1);
    for (const auto& [message, rows] : kCases) {
        Sends(message);
        EXPECT_EQ(Texts(view.lbLobbies.rows), rows) << message;
    }
    EXPECT_EQ(view.lbLobbies.SelectedText(), "Chess : 3") << "the selection stays";
    EXPECT_EQ(Texts(view.lbAllUsers.rows), (Rows{"ann", "Bea", "cid", "dan"})) << "everybody on the service, in order";
    view.lbLobbies.rows.SetText(view.lbLobbies.rows.At(0), "Go : 32767");
    Sends("48:dan;Go;~");
    EXPECT_TRUE(BoxText().starts_with("Error: occured in module UpdateLobbyUserCount().  Error number: 6,"));
    EXPECT_EQ(Texts(view.lbLobbies.rows).front(), "Go : 32767") << "a count at the end of its range stays";
    Answers(BoxResult::Ok);
}

TEST_F(InLobby, AMoveEmptiesTheViewsAndEntersTheSelectedLobby) {
    Sends("1:bob:hello:;~");
    DoubleClicks(view.lbLobbies, 1);
    EXPECT_EQ(Heard(), "Ombrin:12:ann;Go;10.0.0.5;:~");
    EXPECT_FALSE(view.Enabled() || view.CleanUpTimer.On());
    EXPECT_EQ(view.UserList.rows.Count() + Chat().size(), 0u);
    EXPECT_EQ(view.lbAllUsers.rows.Count(), 3u) << "the service's users stay";
    Sends("22:Go,9;Chess,9;~");
    EXPECT_EQ(Heard(), "Ombrin:2:ann;Chess;10.0.0.5;;:~");
    EXPECT_EQ(Texts(view.lbLobbies.rows), (Rows{"Go : 1", "Chess : 2"})) << "the list is filled once";
    Sends("0:ann;1;~");
    Heard();
    DoubleClicks(view.lbLobbies, 1);
    EXPECT_EQ(Heard(), "") << "he is in this lobby";
    Chooses(view.lbLobbies, 0, view.EnterLobby);
    EXPECT_EQ(Heard(), "Ombrin:12:ann;Chess;10.0.0.5;:~");
}

TEST_F(InLobby, ALobbySetByTheServerChangesRecordAndCaptionAlone) {
    Sends("21:Chess;~");
    EXPECT_EQ(Marks().m_UserData, "ann;Chess;10.0.0.5");
    EXPECT_EQ(view.ChatFrame.Caption(), "Lobby - Chess");
    EXPECT_EQ(view.lbLobbies.SelectedText() + Heard(), "Go : 1");
}

TEST_F(InLobby, UsersComeWithTheirStatusAndASoundForOthers) {
    Sends("0:dan;3;eve;5;~0:ann;1;~");
    EXPECT_EQ(world.Told("sound"), Rows{"EnterLobby.wav"});
    EXPECT_EQ(Heard() + Heard(), "Ombrin:19:ann:~Ombrin:19:ann:~");
    EXPECT_EQ(Image("dan") * 10 + Image("eve"), 30);
    using Change = std::pair<std::string, int>;
    for (const auto& [status, image] : {Change("3", 3), {"2", 2}, {"5", 2}, {"9", 2}, {"", 2}, {"1", 1}}) {
        Sends("13:" + status + ":bob;Arena;;3:nobody;;;~");
        EXPECT_EQ(Image("bob"), image) << "status " << status;
    }
    Sends("15:ann;~15:nobody;~15:;~");
    EXPECT_EQ(Texts(view.UserList.rows), (Rows{"bob", "cid", "dan", "eve", "ann"})) << "the first of two rows goes";
}

TEST_F(InLobby, ChatGoesOutEncodedAndIsShownAsTyped) {
    Types(view.MainText, "a:b;c~d");
    Presses(view.SendMain);
    EXPECT_EQ(Heard(), "Ombrin:3:ann;Go;10.0.0.5;a%*|@b^}|#c`@/<d;:~");
    Types(view.MainText, "hi");
    EXPECT_EQ(Key(view.MainText, UserInput::kEnter), 0);
    Sends("1:bob:a%*|@b^}|#c`@/<d:;ann:echo:;~");
    EXPECT_EQ(Chat(), (Rows{"ann: a:b;c~d", "ann: hi", "bob: a:b;c~d"})) << "the echo of the own line is dropped";
    EXPECT_EQ(Key(view.MainText, UserInput::kEnter), UserInput::kEnter) << "an empty box lets the key through";
    EXPECT_EQ(Heard(), "Ombrin:3:ann;Go;10.0.0.5;hi;:~");
    EXPECT_EQ(Heard(), "");
}

TEST_F(InLobby, AChatViewKeepsNinetyNineLinesWithTheirHeights) {
    FlexGrid& grid = view.msflxMainChatLines;
    Sends("1:bob:0:;~");
    EXPECT_EQ(grid.RowHeight(1), 248) << "one line of 16 pixels, and 8 twips";
    // 3600 twips are 240 pixels, thirty characters.
    Sends("1:bob:" + std::string(30, 'a') + " " + std::string(30, 'b') + " c:;~");
    EXPECT_EQ(grid.RowHeight(2), 3 * 16 * 15 + 8);
    for (int i = 2; i <= 100; ++i) Sends("1:bob:" + std::to_string(i) + ":;~");
    EXPECT_EQ(grid.Rows(), Chat::kRowLimit);
    EXPECT_EQ(Chat().front(), "bob: 2");
    EXPECT_EQ(Chat().back(), "bob: 100");
    EXPECT_EQ(grid.TopRow(), grid.Rows() - 1);
    EXPECT_EQ(Key(grid, 67, UserInput::kControl), 0);
    EXPECT_EQ(world.Told("clipboard"), Rows{"100"}) << "the text, never the sender";
    Tries([&](UserInput& input) { return input.ClickCell(grid, 5, 0); });
    Key(grid, 67, UserInput::kControl);
    EXPECT_EQ(world.Told("clipboard").back(), "6");
    Sends("1:bob:more:;~");
    EXPECT_EQ(Chat().back(), "bob: more") << "a click on an old line does not move where new ones go";
}

TEST(ChatSounds, SoundOnlyWhenTheSettingIsOneAtTheStart) {
    for (const auto& [setting, sounds] : {std::pair("1", 3u), std::pair("", 0u), std::pair("true", 0u)}) {
        PlayedClient client;
        client.client.Store().SaveSetting("Settings", "EnableChatLineSounds", setting);
        client.LogsOn();
        client.Sends("1:bob:one:;cid:two:;ann:own:;~");
        client.Types(client.view.MainText, "three");
        client.Presses(client.view.SendMain);
        EXPECT_EQ(client.world.Told("sound").size(), sounds) << setting;
    }
}

TEST_F(InLobby, AnIgnoredUserIsPaintedAndHisLinesDoNotShow) {
    Chooses(view.UserList, 1, view.IgnoreUser);
    EXPECT_EQ(ColourOf("bob"), kIgnoredColour);
    Sends("1:bob:hidden:;cid:seen:;~");
    EXPECT_EQ(Chat(), Rows{"cid: seen"});
    Chooses(view.UserList, 0, view.IgnoreUser);
    EXPECT_EQ(ColourOf("ann"), std::nullopt) << "nobody ignores himself";
    Chooses(view.UserList, 1, view.IgnoreUser); // a second time, which is passed over
    DoubleClicks(view.lbLobbies, 1);
    Sends("22:Go,1;~0:ann;1;bob;1;~");
    EXPECT_EQ(ColourOf("bob"), kIgnoredColour) << "also after a change of lobby";
    client.Store().SaveSetting("Settings", "TextColor", "255");
    Chooses(view.UserList, 1, view.UnignoreUser);
    EXPECT_EQ(ColourOf("bob"), 255);
    Sends("1:bob:back:;~");
    EXPECT_EQ(Chat(), Rows{"bob: back"});
}

TEST_F(InLobby, TheMenuOnAnEmptyListReportsInsteadOfGoingWrong) {
    Sends("15:ann;~15:bob;~15:cid;~");
    Chooses(view.UserList, -1, view.IgnoreUser);
    IsTold(StartsWith("Error: occured in module IgnoreUser_Click()."));
}

TEST_F(BeforeLobby, ATextColourPaintsListsAndChatsAndABadOneIsReported) {
    for (const char* colour : {"255", "green"}) {
        client.Store().SaveSetting("Settings", "TextColor", colour);
        HasChosen();
        Shows();
        if (Top() == "UsrNmPwIP") Presses(forms.UsrNmPwIP.CloseButton);
    }
    EXPECT_EQ(view.UserList.ForeColour(), 255);
    EXPECT_EQ(view.MainText.ForeColour(), 255);
    IsTold(StartsWith("Error: occured in module SetTextColor().  Error number: 13,"));
    EXPECT_EQ(Top(), "UsrNmPwIP") << "the start goes on";
}

} // namespace ombrin::test

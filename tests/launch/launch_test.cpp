// The dialog for a game, and the way from the press of Launch back into the lobby.
#include "support/played_client.h"

#include "controls/user_input.h"

namespace ombrin::test {

using testing::StartsWith;

namespace {

using Rows = std::vector<std::string>;

struct Player : PlayedClient, testing::Test {
    Player() {
        client.Store().SaveSetting("Games", "Go", "C:\\Games\\Quake 3\\quake3.exe");
        LogsOn();
        Sends("2:Arena;1;10.0.0.9;3;8;~");
    }
    ConfigureGame& dialog = forms.ConfigureGame;

    std::string Setting(const std::string& section, const std::string& key) {
        return client.Store().GetSetting(section, key);
    }
    std::string Option(const std::string& section, const std::string& key) {
        return client.Inis().Read("AV.ini", section, key);
    }
    /// What the machine was asked for since the last look, one word an event.
    Rows Done() {
        Rows done;
        for (const recording::Event& event : world.events) {
            if (event.name == "sleep")
                done.push_back("sleep " + std::to_string(std::get<std::int64_t>(event.fields[0].second)));
            if (event.name == "shell" || event.name == "clipboard" || event.name == "chdir")
                done.push_back(event.name + " " + std::get<std::string>(event.fields[0].second));
        }
        world.events.clear();
        return done;
    }
};

} // namespace

TEST_F(Player, TheDialogShowsTheRecordAndOkStoresIt) {
    client.Inis().Write("AV.ini", "quake3", "ServerOptions", "+map q3dm17");
    EXPECT_EQ(view.ConfigWarning.Caption(), "");
    Presses(view.Configure);
    EXPECT_EQ(dialog.GameFile.Text() + "|" + dialog.ServerOptions.Text(), "C:\\Games\\Quake 3\\quake3.exe|+map q3dm17");
    EXPECT_TRUE(dialog.NoDirectPlay.On() && dialog.GameFile.Enabled());
    EXPECT_FALSE(dialog.DPGame.Enabled());
    Presses(dialog.BrowseGames);
    Tries([](UserInput& input) { return input.AnswerFile("/g/hl.exe"); });
    Types(dialog.ClientOptions, ":27016");
    Presses(dialog.OKButton);
    EXPECT_EQ(Setting("Games", "Go"), "/g/hl.exe");
    EXPECT_EQ(Option("hl", "ServerOptions") + Option("hl", "ClientOptions"), "+map q3dm17:27016");
    EXPECT_EQ(Option("quake3", "ServerOptions"), "+map q3dm17") << "the old section stays";
    EXPECT_EQ(Setting("DirectPlay", "DPEnabledGo"), "");

    Presses(view.Configure);
    Presses(dialog.DirectPlay);
    EXPECT_FALSE(dialog.GameFile.Enabled());
    Presses(dialog.OKButton);
    EXPECT_EQ(Setting("DirectPlay", "DPEnabledGo") + Setting("Games", "Go"), "Y/g/hl.exe");
    Sends("21:Chess;~");
    EXPECT_EQ(view.ConfigWarning.Caption(), "Auto-start not configured. Press 'Configure' to set.");
}

TEST_F(Player, CancelKeepsTheRecordButNotTheColourAndTheBoxes) {
    Presses(view.Configure);
    Types(dialog.GameFile, "/elsewhere");
    Presses(dialog.btnTextColor);
    Tries([](UserInput& input) { return input.AnswerColour(0x00FFFFFF); });
    Presses(dialog.BrowseGames);
    Answers(BoxResult::Cancel);
    EXPECT_EQ(dialog.GameFile.Text(), "/elsewhere");
    Ticks(dialog.DisplayIP, true);
    Ticks(dialog.EnableChatLineSounds, true);
    Presses(dialog.About);
    Presses(forms.frmAbout.cmdOK);
    Presses(dialog.CancelButton);
    EXPECT_EQ(Setting("Games", "Go"), "C:\\Games\\Quake 3\\quake3.exe");
    EXPECT_EQ(Setting("Settings", "PublicIP") + Setting("Settings", "EnableChatLineSounds"), "Y1");
    EXPECT_EQ(Setting("Settings", "TextColor"), "16777215");
    EXPECT_EQ(view.UserList.ForeColour(), 0x00FFFFFF);
    EXPECT_TRUE(Marks().ChatSoundsOn);
}

TEST_F(Player, AMemberWaitsStartsTheGameAndComesBackToEmptyLists) {
    EntersRoom();
    world.events.clear();
    Sends("12:10.0.0.9;more;~1:bob:late:;~");
    EXPECT_EQ(Top(), "PauseAV");
    EXPECT_EQ(Done(), (Rows{"clipboard 10.0.0.9", "chdir C:\\Games\\Quake 3", "sleep 10000",
                            "shell C:\\Games\\Quake 3\\quake3.exe +connect 10.0.0.9 "}));
    EXPECT_TRUE(forms.PauseAV.Label2.Caption().starts_with("Game has been launched by room creator.  When"));
    EXPECT_FALSE(view.PingTimer.On());
    Passes(Milliseconds(4 * 60'000));
    EXPECT_EQ(Heard(), "Ombrin:28::~") << "the connection is served meanwhile";
    Sends("1:bob:in between:;~");
    EXPECT_EQ(Chat(), Rows{"bob: in between"}) << "what stood behind the launch waits";
    Presses(forms.PauseAV.ResumeButton);
    EXPECT_EQ(Heard(), "Ombrin:14:ann;Go;10.0.0.5;Arena;:~");
    EXPECT_EQ(Chat(), Rows{"bob: late"});
    EXPECT_EQ(view.UserList.rows.Count() + view.RoomList.rows.Count() + view.RoomUserList.rows.Count(), 0u);
    EXPECT_TRUE(view.Enabled() && view.PingTimer.On());
}

TEST_F(Player, ACreatorLaunchesTwiceWithHisServerFirst) {
    CreatesRoom("Base");
    for (int launch = 0; launch < 2; ++launch) {
        world.events.clear();
        Presses(view.Launch);
        EXPECT_EQ(Heard(), "Ombrin:10:ann;Go;10.0.0.5;Base;:~");
        EXPECT_FALSE(view.Enabled());
        Sends("12:10.0.0.5;~");
        EXPECT_EQ(Done(), (Rows{"clipboard 10.0.0.5", "chdir C:\\Games\\Quake 3",
                                "shell C:\\Games\\Quake 3\\quake3.exe +set dedicated 2 +map q3dm1", "sleep 10000",
                                "shell C:\\Games\\Quake 3\\quake3.exe +connect 10.0.0.5 "}));
        Presses(forms.PauseAV.ResumeButton);
        EXPECT_EQ(Heard(), "Ombrin:14:ann;Go;10.0.0.5;Base;:~");
        EXPECT_TRUE(view.Launch.Enabled());
    }
}

TEST_F(Player, WhatCannotStartLeavesTheAddressAndTheWayBack) {
    EntersRoom();
    constexpr const char* kNotStarted = "Error: could not launch game.  Check path and file name in Configure dialog.";
    const struct {
        const char *message, *file;
        Rows done;
        const char* box = "";
    } kCases[] = {
        {"12:10.0.0.9;~",
         "/g/hl.exe",
         {"clipboard 10.0.0.9", "chdir /g", "sleep 10000", "shell /g/hl.exe -console +connect 10.0.0.9:27016"},
         kNotStarted},
        {"12:10.0.0.9;~", "", {"clipboard 10.0.0.9"}},
        {"12:nothing~", "/g/other.exe", {"clipboard ", "chdir /g", "sleep 10000", "shell /g/other.exe"}, kNotStarted},
        {"12:-exec evil;~", "/g/hl.exe", {"clipboard -exec evil"}},
        {"12:10.0.0.9 +quit;~", "/g/hl.exe", {"clipboard 10.0.0.9 +quit"}},
    };
    world.processes.starts = {false};
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.message);
        client.Store().SaveSetting("Games", "Go", row.file);
        world.events.clear();
        Sends(row.message);
        EXPECT_EQ(BoxText(), row.box);
        if (Top() == "MessageBox") Answers(BoxResult::Ok);
        EXPECT_EQ(Done(), row.done);
        Presses(forms.PauseAV.ResumeButton);
    }
}

TEST_F(Player, ARunningGameIsJoinedFromTheLobbyAlone) {
    Chooses(view.RoomList, 0, view.JoinServerAndPlay);
    IsTold("You cannot join this game, it has not started.");
    Sends("14:Arena;2;~");
    Heard();
    world.events.clear();
    Chooses(view.RoomList, 0, view.JoinServerAndPlay);
    Heard(); // the preview of the click
    EXPECT_EQ(Heard(), "Ombrin:29:3;:~");
    EXPECT_EQ(Done().at(0), "clipboard 10.0.0.9");
    Presses(forms.PauseAV.ResumeButton);
    EXPECT_EQ(Heard(), "Ombrin:14:ann;Go;10.0.0.5;;:~");
    EXPECT_EQ(client.RoomPosition(), Position::Lobby);
}

TEST_F(Player, AServerThatDoesNotAnswerGivesTheViewBackWhereASettingSaysSo) {
    CreatesRoom("Base");
    client.Store().SaveSetting("Settings", "LaunchPatience", "30");
    Presses(view.Launch);
    Passes(Milliseconds(29'000));
    EXPECT_FALSE(view.Enabled());
    Passes(Milliseconds(1'000));
    EXPECT_TRUE(view.Enabled() && view.Launch.Enabled());
    Presses(view.Launch);
    Sends("12:10.0.0.5;~");
    Passes(Milliseconds(30'000));
    EXPECT_FALSE(view.Enabled()) << "the answer has come, and the game runs";
    Presses(forms.PauseAV.ResumeButton);
    while (!Heard().empty()) {
    }
    client.Store().SaveSetting("Settings", "LaunchPatience", "soon");
    Presses(view.Launch);
    EXPECT_EQ(Heard(), "Ombrin:10:ann;Go;10.0.0.5;Base;:~") << "a setting that is no number keeps no game back";
    IsTold(StartsWith("Error: occured in module Launch_Click()"));
}

TEST_F(Player, AGameIsSearchedForWithTheUsersConsentLevelByLevel) {
    world.disks.roots = {"/d/", "/e/"};
    world.disks.directories = {
        {"/d/", {{"a", true, false}, {".b", true, true}, {"HL.EXE.txt", false, false}}},
        {"/d/a/", {{"c", true, false}}},
        {"/d/a/c/", {{"deep.exe", false, false}}},
        {"/d/.b/", {{"hl.exe", false, false}}}, // a hidden directory is not entered
        {"/e/", {{"x", true, false}, {"y", true, false}, {"hl.exe", true, false}}},
        {"/e/x/", {{"z", true, false}}},
        {"/e/x/z/", {{"hl.exe", false, false}}},
        {"/e/y/", {{"HL.exe", false, true}}}, // a hidden file is found, and keeps its letters
    };
    client.Store().SaveSetting("DirectPlay", "DPEnabledGo", "Y");
    const auto asks = [&](const std::string& payload, BoxResult answer) {
        Sends("40:" + payload + "~");
        const bool asked = BoxText().starts_with("The server would like to set this game to auto-start.");
        if (asked) Answers(answer);
        return asked;
    };
    EXPECT_TRUE(asks("Go;hl.exe;", BoxResult::No));
    EXPECT_EQ(Setting("Games", "Go"), "C:\\Games\\Quake 3\\quake3.exe");
    EXPECT_TRUE(asks("Go;hl.exe;", BoxResult::Yes));
    EXPECT_EQ(Setting("Games", "Go") + Setting("DirectPlay", "DPEnabledGo"), "/e/y/HL.exe");
    EXPECT_FALSE(asks("Go;HL.exe;", BoxResult::Yes)) << "known already";
    EXPECT_TRUE(asks("Go;deep.exe;", BoxResult::Yes));
    EXPECT_EQ(Setting("Games", "Go"), "/d/a/c/deep.exe");
    EXPECT_TRUE(asks("Go;nosuch.exe;", BoxResult::Yes));
    IsTold("This game does not seem to be installed on your system.  Could not set auto-start.");
    for (const char* odd : {"", "Go;../hl.exe;", ";hl.exe;", "Go;..;", "Go;;"})
        EXPECT_FALSE(asks(odd, BoxResult::Yes)) << odd;
    EXPECT_EQ(Top(), "");

    world.registry.Write("HKEY_LOCAL_MACHINE\\SOFTWARE\\Matrix Games\\Squad Assault - West Front", "installed to",
                         std::string("C:\\SA"));
    EXPECT_FALSE(asks("Chess/Go;SquadAssaultWestFront.exe;", BoxResult::Yes));
    EXPECT_EQ(Setting("Games", "Chess/Go"), "C:\\SA\\SquadAssaultWestFront.exe");
}

TEST_F(Player, TheCreatorsOtherNetworkIsStartedFirstWithEverybodysAddress) {
    client.Store().SaveSetting("Games", "Go", "C:\\W3\\Warcraft III.exe");
    CreatesRoom("Base");
    Sends("3:bob;10.0.0.9;N;cid;;Y;~");
    world.events.clear();
    Presses(view.Launch);
    Sends("12:10.0.0.5;~");
    EXPECT_EQ(world.files.Content("/home/system/BattleLAN.ini"), "10.0.0.5\r\n10.0.0.9\r\n");
    EXPECT_EQ(Done(), (Rows{"clipboard 10.0.0.5", "chdir C:\\W3", "shell BattleLANv0.5.exe", "sleep 4000",
                            "shell C:\\W3\\Warcraft III.exe"}));
    Presses(forms.PauseAV.ResumeButton);

    Sends("3:ann;;N;dan;10.0.0.7;N;~"); // without an address in front, what the last launch wrote stays
    world.processes.starts = {false, true};
    Presses(view.Launch);
    Sends("12:10.0.0.5;~");
    IsTold("Error: occured in module LaunchUsingBattleLAN().  Error number: 53,  Error Line: 0,  "
           "Description: BattleLANv0.5.exe cannot be started");
    EXPECT_EQ(world.files.Content("/home/system/BattleLAN.ini"), "10.0.0.5\r\n10.0.0.9\r\n10.0.0.7\r\n");
    EXPECT_EQ(Done().back(), "shell C:\\W3\\Warcraft III.exe") << "the game starts all the same";
    Presses(forms.PauseAV.ResumeButton);
}

} // namespace ombrin::test

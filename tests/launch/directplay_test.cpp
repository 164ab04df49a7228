// Games that DirectPlay starts: their lists, the server's word for them, and what each side of a room asks for.
#include "support/played_client.h"

namespace ombrin::test {

using testing::StartsWith;

namespace {

using Rows = std::vector<std::string>;

const std::string kSeven = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay\\Applications\\";
const std::string kProviders = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay\\Service Providers\\";
const std::string kEight = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay8\\Applications\\";
const std::string kInstance = "{4A149E91-E7AD-11D3-B721-20AF57C10000}";

struct DirectPlayer : PlayedClient, testing::Test {
    void Has(const std::string& key, const std::string& name, const std::string& value) {
        world.registry.Write(key, name, value);
    }
    void HasTwoGames() {
        Has(kProviders + "Modem", "Guid", "{MODEM}");
        Has(kProviders + "Internet TCP/IP Connection For DirectPlay", "Guid", "{TCP}");
        Has(kSeven + "Zebra", "Guid", "{Z}");
        Has(kSeven + "Ants", "Guid", "{A}");
        Has(kEight + "{EIGHT}", "ApplicationName", "Octopus");
        Has(kEight + "{A NAMELESS ONE}", "Other", "x");
    }
    void Plays(const std::string& application, const std::string& lobby = "Go") {
        client.Store().SaveSetting("DirectPlay", lobby, application);
        client.Store().SaveSetting("DirectPlay", "DPEnabled" + lobby, "Y");
        Do([&] { client.CheckAutoStart(); });
    }
    std::string Record(const std::string& lobby) {
        return client.Store().GetSetting("DirectPlay", lobby) + "|" +
               client.Store().GetSetting("DirectPlay", "DPEnabled" + lobby);
    }
    /// Waits and starts, each in one line.
    Rows Launched(const std::string& message = "12:10.0.0.77;~") {
        world.events.clear();
        Sends(message);
        Rows done;
        for (const recording::Event& event : world.events) {
            if (event.name != "sleep" && event.name != "directplay" && event.name != "shell") continue;
            std::string line = event.name;
            for (const auto& [name, value] : event.fields) {
                const auto* number = std::get_if<std::int64_t>(&value);
                line += " " + (number != nullptr ? std::to_string(*number) : std::get<std::string>(value));
            }
            done.push_back(line);
        }
        return done;
    }
    void Resumes() {
        EXPECT_EQ(Top(), "PauseAV");
        Presses(forms.PauseAV.ResumeButton);
    }
};

} // namespace

TEST_F(DirectPlayer, TheListHoldsBothKindsAndEachSideAsksForItsOwn) {
    HasTwoGames();
    LogsOn();
    EXPECT_EQ(client.m_DPGameList(), "Ants;Zebra;Octopus;");
    EXPECT_EQ(forms.ConfigureGame.DPGameList, client.m_DPGameList());
    const std::string seven = "directplay RunApplication {A} {TCP} ", eight = "directplay ConnectApplication {EIGHT} ";
    CreatesRoom("Base");
    Plays("Ants");
    EXPECT_EQ(Launched(), Rows{seven + "Base " + kInstance + " 68 0 10.0.0.5 0 ann 2"});
    EXPECT_TRUE(forms.PauseAV.Label2.Caption().starts_with("Game launched using DirectPlay."));
    Resumes();
    Plays("Octopus");
    EXPECT_EQ(Launched(), Rows{eight + "Base " + kInstance + " 4 0 10.0.0.5 ann 1 1 -1"});
    Resumes();
    Sends("10:~");

    Sends("2:Arena;1;10.0.0.9;3;8;~");
    EntersRoom();
    Plays("Ants");
    EXPECT_EQ(Launched(), (Rows{"sleep 3000", seven + "Arena " + kInstance + " 68 0 10.0.0.9 0 ann 1"}));
    Resumes();
    Plays("Octopus");
    EXPECT_EQ(Launched(), (Rows{"sleep 3000", eight + "Arena " + kInstance + " 4 0 10.0.0.9 ann 0 1 -1"}));
    Resumes();
    Presses(view.Leave);
    Sends("9:~");
    EXPECT_EQ(Launched(), (Rows{"sleep 3000", eight + " " + kInstance + " 4 0 10.0.0.77 ann 0 1 -1"}))
        << "one who joins from the lobby goes where the launch says";
    Resumes();
    Do([&] { client.UserControl_Terminate(); });
    EXPECT_NE(world.LogText().find("DirectX8CleanUp releasing application: 5"), std::string::npos);
}

TEST_F(DirectPlayer, WhatIsMissingIsSaidAndTheLobbyGoesOn) {
    LogsOn();
    EXPECT_EQ(client.m_DPGameList(), "");
    CreatesRoom("Base");
    const auto says = [&](const std::string& text) {
        EXPECT_EQ(Launched(), Rows{}) << text;
        EXPECT_EQ(BoxText(), text);
        if (!text.empty()) Answers(BoxResult::Ok);
        Resumes();
    };
    Plays("Ants");
    says("Error: could not launch the game, no DirectPlay service provider found.");
    Has(kProviders + "Internett TCP/IP-tilkobling for DirectPlay", "Guid", "{TCP}");
    Do([&] { client.InitDirectX(); });
    says("Error: could not launch the game, could not find the game's ApID.");
    Has(kEight + "{EIGHT}", "ApplicationName", "ants"); // another name: letters count
    says("Error: could not launch the game, could not find the game's ApID.");
    Has(kEight + "{EIGHT}", "ApplicationName", "Ants"); // installed while the client runs
    says("Error: occured in module LaunchDP8Game().  Error number: 91,  Error Line: 0,  Description: DirectPlay 8 was "
         "not there when the client started; start the client anew");
    Do([&] { client.InitDirectX(); });
    EXPECT_EQ(Launched().size(), 1u);
    Resumes();
    Sends("45:nobody knows;~"); // no address comes from there
    EXPECT_EQ(Launched(), Rows{});
    Resumes();
    EXPECT_TRUE(view.Enabled());
}

TEST_F(DirectPlayer, AMachineWithoutTheServiceIsToldOnceAndGoesOn) {
    HasTwoGames();
    world.directPlay.present = false;
    HasChosen();
    Shows("ann;Go;127.0.0.1;7777");
    IsTold("Error: occured in module InitDirectX().  Error number: 429,  Error Line: 0,  Description: "
           "DirectPlay is not there on this machine");
    Accepts();
    Sends("0:ann;1;~");
    Plays("Ants");
    EXPECT_EQ(Launched(), Rows{});
    IsTold(StartsWith("Error: occured in module LaunchDPGame().  Error number: 91"));
    Resumes();
}

TEST_F(DirectPlayer, TheProviderIsKnownByFiveNamesAndTheLastOneCounts) {
    const Rows kNames{"Connexion Internet TCP/IP pour DirectPlay", "Internet TCP/IP Connection For DirectPlay",
                      "Internet TCP/IP-anslutning f\xF6r Direct Play", "Internett TCP/IP-tilkobling for DirectPlay",
                      "Po\xB3\xB9"
                      "czenie Internet TCP/IP dla DirectPlay"}; // as they are sorted
    Has(kSeven + "Ants", "Guid", "{A}");
    LogsOn();
    Plays("Ants");
    CreatesRoom("Base");
    for (const std::string& name : kNames) {
        Has(kProviders + name, "Guid", "{" + name + "}");
        Do([&] { client.InitDirectX(); });
        const Rows done = Launched();
        ASSERT_EQ(done.size(), 1u) << name;
        EXPECT_NE(done[0].find(" {" + name + "} Base"), std::string::npos) << done[0];
        Resumes();
    }
}

TEST_F(DirectPlayer, TheServerTurnsGamesOverWhoseApplicationIsHere) {
    HasTwoGames();
    LogsOn();
    EXPECT_NE(view.ConfigWarning.Caption(), "");
    client.Store().SaveSetting("DirectPlay", "Chess", "mine");
    Sends("39:Chess;NoSuch;Empty;;Go/Pro;Ants;Go;Octopus;Nim;Zebra;;;After;Ants;~");
    EXPECT_EQ(Record("Chess"), "mine|");
    EXPECT_EQ(Record("Go") + " " + Record("Nim"), "Octopus|Y Zebra|Y");
    EXPECT_EQ(Record("Go/Pro"), "Ants|Y") << "a lobby may be called like that";
    EXPECT_EQ(Record("Empty") + Record("After"), "||");
    EXPECT_EQ(view.ConfigWarning.Caption(), "");
    std::string many = "39:";
    for (int i = 1; i <= 200; ++i) many += "Game" + std::to_string(i) + ";Ants;";
    Sends(many + "~39:~");
    EXPECT_EQ(Record("Game199") + " " + Record("Game200"), "Ants|Y |");
    EXPECT_NE(world.LogText().find("Error: no data in SetDirectPlayGames()."), std::string::npos);
}

TEST_F(DirectPlayer, FlightSimulatorHearsOfTheRoomInItsOwnFileAndGetsMoreTime) {
    HasTwoGames();
    Has(kSeven + "Flight Simulator 2002", "Guid", "{97C62470-5F53-4098-A8BB-7F1F93B94D93}");
    Has(kSeven + "Flight Simulator 2002", "Path", "C:\\FS");
    LogsOn();
    Plays("Flight Simulator 2002");
    CreatesRoom("Base");
    EXPECT_EQ(Launched().size(), 1u) << "the creator waits for nothing";
    EXPECT_EQ(client.Inis().Read("C:\\FS\\FS2002.cfg", "MULTIPLAYER", "SESSION_NAME"), "Base");
    Resumes();
    Sends("10:~");
    Sends("2:Arena;1;10.0.0.9;3;8;~");
    EntersRoom();
    const Rows done = Launched();
    EXPECT_EQ((Rows{done.at(0), done.at(1)}), (Rows{"sleep 15000", "sleep 3000"}));
    EXPECT_EQ(client.Inis().Read("C:\\FS\\FS2002.cfg", "MULTIPLAYER", "SESSION_NAME"), "Arena");
    Resumes();
}

TEST_F(DirectPlayer, AHostProgramHasAClassOfItsOwn) {
    HasTwoGames();
    LogsOn();
    Sends("2:Arena;1;10.0.0.9;3;8;~");
    EntersRoom();
    world.events.clear();
    Do([&] {
        clsDirectPlay direct = client.DirectPlayForHost();
        direct.GetDirectPlay8Games();
        EXPECT_TRUE(direct.dx8 && direct.DP8LobbyClient);
        direct.LaunchDP8Game();
    });
    EXPECT_EQ(world.Told("directplay"), Rows{"Connect"});
    const auto& fields = world.events.back().fields;
    EXPECT_EQ(std::get<std::string>(fields.at(1).second), "{4287F2A7-93D2-4E94-93C6-21C865430D85}");
    EXPECT_EQ(std::get<std::string>(fields.at(2).second) + " " + std::get<std::string>(fields.at(4).second),
              "10.0.0.9 ann");
}

} // namespace ombrin::test

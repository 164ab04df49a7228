// The command lines of the games that host or connect by their command line, and the start of their servers.
#include "launch/direct_ip_launch.h"
#include "launch/game_paths.h"
#include "platform/recording/recording_network.h"
#include "text/language_stage.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace ombrin::test {

namespace {

using Lines = std::vector<std::string>;

/// "program|rest".
std::string Shown(const CommandLine& command) {
    return std::string(command.Program()) + "|" + command.text.substr(command.programLength);
}

struct RecordedProcesses : Processes {
    void ChDir(std::string_view) override {}
    TaskId Shell(const CommandLine& command) override {
        told.push_back("shell " + Shown(command));
        started = command;
        return startsFail ? kNone : 1;
    }
    void AppActivate(TaskId) override {}
    void SendKeys(std::string_view) override {}
    void Sleep(long milliseconds) override { told.push_back("sleep " + std::to_string(milliseconds)); }

    Lines told;
    CommandLine started;
    bool startsFail = false;
};

struct Options {
    std::string server, client;
};

struct DirectIP : LanguageStage, testing::Test {
    static constexpr const char *kIP = "10.0.0.7", *kName = "Ann <ip>";

    void Stores(const std::string& path, Options options) {
        inis.Write("AV.ini", ExeBase(path), "ServerOptions", options.server);
        inis.Write("AV.ini", ExeBase(path), "ClientOptions", options.client);
    }
    CommandLine Command(const std::string& path, bool isCreator) {
        processes.told.clear();
        return launch.GetCommandLineParameters(path, isCreator, kIP, kName);
    }
    recording::PlayedNetwork network;
    Settings settings{files, "/settings.ini"};
    Messages messages{boxes, language};
    View view{loop};
    Session session;
    Link link{network, session, messages, log, {}};
    RecordedProcesses processes;
    clsDIPServerLaunch launch{Desk{view, session, link, messages, language, settings, profile, trap}, processes};
};

enum Way { kUsual, kOwn, kUnread };

struct Row {
    const char* path;
    Way way; ///< kUsual: the options are the defaults, which also hold when "" is stored
    std::string serverOptions, clientOptions;
    const char*
        server; ///< behind the game's own program, or "program|rest", with "*" for the options; nullptr for none
    const char* creator; ///< behind the path
    const char* member = creator;
};

/// No placeholder of a template may be looked for in them.
constexpr const char *kMyServer = "-s <ip> <co>", *kMyClient = "-c <name> <so>";
constexpr const char* kHalfLife = " -game tfc  +maxplayers 10 +map 2fort";
const std::string kWar = " +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12 +map ";
const std::string kAllied1 = kWar + "dm/mohdm1", kAllied6 = kWar + "dm/mohdm6", kBeach = kWar + "mp_beach";

const Row kRows[] = {
    {"C:\\Red Storm\\GhostRecon.exe", kUnread, kMyServer, kMyClient, nullptr, " -server 10.0.0.7",
     " -client 10.0.0.7 -port 2346"},
    {"C:\\Red Storm\\GRDemo.exe", kUnread, kMyServer, kMyClient, nullptr, " -server 10.0.0.7",
     " -client 10.0.0.7 -port 2346"},
    {"C:\\My Games\\cstrike.exe", kUsual, kHalfLife, "", "C:\\My Games\\hlds.exe| -port 27016 *",
     " -console +connect 10.0.0.7:27016"},
    {"C:\\My Games\\cstrike.exe", kOwn, kMyServer, kMyClient, "C:\\My Games\\hlds.exe| *",
     " -console +connect 10.0.0.7-c <name> <so>"},
    {"C:\\dominions\\dom.exe", kUsual, "--tcpserver --nointro --port 1024 -w",
     "--tcpclient --nointro --port 1024 --ipadr", " *", " --tcpclient --nointro --port 1024 --ipadr 10.0.0.7"},
    {"C:\\EA GAMES\\mohaa.exe", kUsual, kAllied1, "", " *", " connect 10.0.0.7 "},
    {"C:\\EA GAMES\\MOHAANetDemo.exe", kUsual, kAllied6, "", " *", " connect 10.0.0.7 "},
    {"C:\\Wolf\\WolfMP.exe", kUsual, kBeach, "", " *", " connect 10.0.0.7 "},
    {"C:\\Wolf\\WolfMPDemo.exe", kUsual, kBeach, "", " *", " connect 10.0.0.7 "},
    {"C:\\OFP\\OperationFlashpoint.exe", kUsual, "", "", nullptr, " -host ", " -connect=10.0.0.7 "},
    {"C:\\Half Life\\hl.exe", kUsual, kHalfLife, "", "C:\\Half Life\\hlds.exe| -port 27016 *",
     " -console +connect 10.0.0.7:27016"},
    {"C:\\Half Life\\hl.exe", kOwn, "-game tfc  +maxplayers 10 +map 2fort", " +name x", "C:\\Half Life\\hlds.exe| *",
     " -console +connect 10.0.0.7 +name x"},
    {"C:\\Quake III Arena\\QUAKE3.EXE", kUsual, "+set dedicated 2 +map q3dm1", "", " *", " +connect 10.0.0.7 "},
    {"C:\\Quake III Arena\\QUAKE3.EXE", kOwn, " +map q3dm17", " +name x", " *", " +connect 10.0.0.7  +name x"},
    {"C:\\Quake III Arena\\taquake3.exe", kUsual, "+set dedicated 2 +map mpteam3", "", " *", " +connect 10.0.0.7 "},
    {"C:\\UT GOTY\\System\\UnrealTournament.exe", kUsual, " server DM-Agony.unr", "", "C:\\UT GOTY\\System\\ucc.exe| *",
     " 10.0.0.7 "},
    {"C:\\UT2003\\System\\UT2003.exe", kUsual, " server DM-Antalus.ut2", "", "C:\\UT2003\\System\\ucc.exe| *",
     " 10.0.0.7 "},
    {"C:\\UT2003\\System\\UT2003.exe", kOwn, kMyServer, kMyClient, "C:\\UT2003\\System\\ucc.exe| *",
     " 10.0.0.7 -c <name> <so>"},
    {"C:\\Kohan\\Kohan_AG.exe", kUnread, kMyServer, kMyClient, nullptr, " hostdefault", " connect 10.0.0.7"},
    {"C:\\SoF2 Test\\SoF2MP-Test.exe", kUsual, "+set dedicated 1 +map mp_shop", "", " *", " +connect 10.0.0.7:20101 "},
    {"C:\\Warcraft III\\Warcraft III.exe", kUnread, kMyServer, kMyClient, nullptr, ""},
    {"C:\\Squad\\SquadAssaultWestFront.exe", kUnread, kMyServer, kMyClient, nullptr, " -host -10.0.0.7 -Ann <ip>",
     " -client -10.0.0.7 -Ann <ip>"},
    {"C:\\Matrix Games\\HTTR.exe", kUsual, " -port 1944", " -port 1944", nullptr, " -server  -port 1944",
     " -connect 10.0.0.7  -port 1944"},
    {"C:\\Matrix Games\\HTTR.exe", kOwn, kMyServer, kMyClient, nullptr, " -server -s <ip> <co>",
     " -connect 10.0.0.7 -c <name> <so>"},
    {"C:\\Warlords\\Warlords4.exe", kUnread, kMyServer, kMyClient, nullptr, " -CREATE",
     " -JOIN -IP0:10.0.0.7 PLAYERNAME:Ann <ip>"},
    {"C:\\OLD\\WARCRAFT iii.EXE", kUnread, kMyServer, kMyClient, nullptr, ""},
    {"/opt/half life/HL.EXE", kUsual, kHalfLife, "", "/opt/half life/hlds.exe| -port 27016 *",
     " -console +connect 10.0.0.7:27016"},
    {"Z:\\home/ann\\hl.exe", kOwn, "+map x", ":1", "Z:\\home/ann\\hlds.exe| *", " -console +connect 10.0.0.7:1"},
};

} // namespace

TEST_F(DirectIP, EachGameIsStartedByItsOwnCommandOnEitherSide) {
    for (const Row& row : kRows) {
        std::vector<Options> ways{{row.serverOptions, row.clientOptions}};
        if (row.way == kUsual) ways.push_back({});
        for (const Options& options : ways) {
            SCOPED_TRACE(testing::Message()
                         << row.path << ", options of row " << &row - kRows << ": " << options.server);
            const std::string path = row.path;
            Stores(path, options);
            if (row.way == kUnread) files.broken = "/windows/AV.ini"; // to read it would bring up a box
            EXPECT_EQ(Shown(Command(path, true)), path + "|" + row.creator);
            Lines told;
            if (row.server != nullptr) {
                std::string server = *row.server == ' ' ? path + "|" + row.server : row.server;
                told = {"shell " + server.replace(server.find('*'), 1, row.serverOptions), "sleep 10000"};
            }
            EXPECT_EQ(processes.told, told);
            EXPECT_EQ(Shown(Command(path, false)), path + "|" + row.member);
            EXPECT_EQ(processes.told, Lines{}) << "a member starts no server";
            files.broken.clear();
        }
    }
}

TEST_F(DirectIP, AGameInNoRowGetsNoCommandAndNoServer) {
    for (const char* path : {"hl.exe", "", "C:\\Games\\hl.exe\\", "C:\\Games\\hl", "C:\\Games\\xhl.exe",
                             "C:\\Games\\hl.exe.exe", "C:\\Games/hl.exe"}) {
        EXPECT_TRUE(Command(path, true).Empty()) << path;
        EXPECT_EQ(processes.told, Lines{}) << path;
    }
}

TEST_F(DirectIP, BlanksOfThePathDivideNothingAndThoseOfTheOptionsDo) {
    const char* path = "C:\\Q 3\\quake3.exe";
    Stores(path, {"+set motd \"Hello there\"", " +name \"\" "});
    EXPECT_EQ(Command(path, true).Arguments(), (Lines{"+connect", "10.0.0.7", "+name", ""}));
    EXPECT_EQ(processes.started.Arguments(), (Lines{"+set", "motd", "Hello there"}));
    EXPECT_EQ(processes.started.Program(), path);
}

TEST_F(DirectIP, TheUserHearsOfAServerThatDoesNotStartAndTheGameIsStartedAllTheSame) {
    const struct {
        std::string path, routine, server;
    } kCases[] = {
        {"C:\\dom.exe", "Dominions", "Dominions server"},
        {"C:\\cstrike.exe", "CounterStrike", "CounterStrike server"},
        {"C:\\mohaa.exe", "MedalOfHonor", "Medal Of Honor server"},
        {"C:\\WolfMPDemo.exe", "RTCW", "RTCW server"},
        {"C:\\hl.exe", "HalfLife", "HalfLife server"},
        {"C:\\taquake3.exe", "Quake3", "Quake3 server"},
        {"C:\\UT2003.exe", "UnRealTournament", "UnRealTournament server"},
        {"C:\\SoF2MP-Test.exe", "SOF2", "SOF2 server"},
    };
    const auto box = [&](const std::string& text) {
        user.Then([this, text] {
            auto& shown = dynamic_cast<MessageBoxForm&>(*stack.Top());
            EXPECT_EQ(shown.Text(), text);
            shown.Press(BoxResult::Ok);
        });
    };
    std::string logged;
    const auto log = [&] { return files.Content("/system/AVClLogs.txt"); };
    const auto gains = [&](const std::string& line) {
        EXPECT_NE(log().find(line, logged.size()), std::string::npos) << line << log().substr(logged.size());
        logged = log();
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.path);
        processes.startsFail = false;
        const std::string game = Command(row.path, true).text;
        gains(row.server + " launched successfully");
        processes.startsFail = true;
        box("Error: could not launch " + (row.routine == "Dominions" ? "Dominions server." : std::string("server.")));
        EXPECT_EQ(Command(row.path, true).text, game);
        EXPECT_EQ(processes.told.back(), "sleep 10000");
        gains("Error: could not launch " + row.server + " in module " + row.routine + "()");
    }
    Lies("[CurrentLanguage]\nLanguage=Deutsch\n[Deutsch]\nError14=Startet nicht.\n");
    box("Startet nicht."); // as of a game that does not
    Command("C:\\dom.exe", true);
    EXPECT_TRUE(user.Done());
}

TEST_F(DirectIP, EachRoutineBuildsItsGamesCommandWhateverTheFileIsNamed) {
    using Game = clsDIPServerLaunch;
    using Text = std::string_view;
    const std::string path = "D:\\renamed.exe";
    const std::pair<CommandLine (Game::*)(Text, bool, Text), const char*> kPlain[] = {
        {&Game::Dominions, "dom.exe"},         {&Game::GhostRecon, "GRDemo.exe"},
        {&Game::CounterStrike, "cstrike.exe"}, {&Game::RTCW, "WolfMP.exe"},
        {&Game::HalfLife, "hl.exe"},           {&Game::OperationFlashPoint, "OperationFlashpoint.exe"},
        {&Game::Kohan, "Kohan_AG.exe"},        {&Game::HighwayToTheReich, "HTTR.exe"},
    };
    const auto member = [&](const char* file) {
        const std::string own = std::string("C:\\") + file;
        return path + Command(own, false).text.substr(own.size());
    };
    for (const auto& [routine, file] : kPlain) EXPECT_EQ((launch.*routine)(path, false, kIP).text, member(file));
    const std::pair<CommandLine (Game::*)(Text, bool, Text, Text), const char*> kWithDefault[] = {
        {&Game::MedalOfHonor, "mohaa.exe"},
        {&Game::Quake3, "quake3.exe"},
        {&Game::UnRealTournament, "UT2003.exe"},
        {&Game::SOF2, "SoF2MP-Test.exe"},
    };
    for (const auto& [routine, file] : kWithDefault) {
        EXPECT_EQ((launch.*routine)(path, false, kIP, "").text, member(file));
        (launch.*routine)(path, true, kIP, "+map y");
        EXPECT_TRUE(processes.started.text.ends_with(" +map y")) << file;
    }
    EXPECT_EQ(launch.SquadAssault(path, false, kIP, kName).text, member("SquadAssaultWestFront.exe"));
    EXPECT_EQ(launch.Warlords4(path, false, kIP, kName).text, member("Warlords4.exe"));
}

TEST_F(DirectIP, OptionsBelongToTheExecutable) {
    inis.Write("AV.ini", "QUAKE3", "ServerOptions", " mine");
    for (const auto& [path, options] : {std::pair("D:\\quake3.bat", " mine"),
                                        {"D:\\quake3.exe.bat", "usual"},
                                        {"QUAKE3.EXE", "usual"},
                                        {"C:\\QUAKE3", "usual"}})
        EXPECT_EQ(launch.GetIniFileOptions(path, "usual", "ServerOptions"), options) << path;
}

} // namespace ombrin::test

// The command lines of the games that host or connect by their command line, and the start of their servers.
#include "launch/direct_ip_launch.h"
#include "platform/recording/recording_network.h"
#include "text/language_stage.h"

#include <gmock/gmock.h>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace ombrin::test {

namespace {

using Lines = std::vector<std::string>;

/// "program|rest".
std::string Shown(const CommandLine& command) {
    return std::string(command.Program()) + "|" + command.text.substr(command.programLength);
}

/// Each argument with a "|" behind it.
std::string Listed(const CommandLine& command) {
    std::string listed;
    for (const std::string& argument : command.Arguments()) listed += argument + "|";
    return listed;
}

struct RecordedProcesses : Processes {
    void ChDir(std::string_view directory) override { told.push_back("chdir " + std::string(directory)); }
    TaskId Shell(const CommandLine& command) override {
        told.push_back("shell " + Shown(command));
        started.push_back(command);
        return startsFail ? kNone : 1;
    }
    void AppActivate(TaskId task) override { told.push_back("activate " + std::to_string(task)); }
    void SendKeys(std::string_view keys) override { told.push_back("keys " + std::string(keys)); }
    void Sleep(long milliseconds) override { told.push_back("sleep " + std::to_string(milliseconds)); }

    Lines told;
    std::vector<CommandLine> started;
    bool startsFail = false;
};

struct WatchedFiles : recording::MemoryFiles {
    std::optional<Stamp> StampOf(const std::string& path) const override {
        ++lookUps;
        return MemoryFiles::StampOf(path);
    }
    mutable int lookUps = 0;
};

struct Options {
    const char *server = "", *client = "";
};

struct DirectIP : LanguageStage, testing::Test {
    static constexpr const char *kIP = "10.0.0.7", *kName = "Ann <ip>";

    /// The whole of AV.ini; nothing for an empty file.
    void Stores(const std::string& path, std::optional<Options> options) {
        files.Update("/windows/AV.ini", Files::Readers::Everybody, [](const auto&) { return std::optional(""); });
        if (!options) return;
        const std::string file = path.substr(path.find_last_of("\\/") + 1);
        const std::string section = file.substr(0, file.rfind('.'));
        inis.Write("AV.ini", section, "ServerOptions", options->server);
        inis.Write("AV.ini", section, "ClientOptions", options->client);
    }
    CommandLine Command(const std::string& path, bool isCreator) {
        processes = {};
        return launch.GetCommandLineParameters(path, isCreator, kIP, kName);
    }
    /// What the log holds, without times.
    Lines Logged() const {
        Lines lines;
        std::istringstream log(files.Content("/system/AVClLogs.txt"));
        for (std::string line; std::getline(log, line);) {
            const std::size_t begin = line.find("] ") + 2;
            lines.push_back(line.substr(begin, line.size() - begin - 1));
        }
        return lines;
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
    Way way; ///< kUsual: the options are the defaults, which also hold when nothing or "" is stored
    const char *serverOptions, *clientOptions;
    const char* server;  ///< behind the game's own program, or "program|rest"; nullptr for none
    const char* creator; ///< behind the path
    const char* member = creator;
};

/// No placeholder of a template may be looked for in them.
constexpr const char *kMyServer = "-s <ip> <co>", *kMyClient = "-c <name> <so>";
constexpr const char* kHalfLife = " -game tfc  +maxplayers 10 +map 2fort";
constexpr const char* kAllied1 =
    " +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12 +map dm/mohdm1";
constexpr const char* kAllied6 =
    " +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12 +map dm/mohdm6";
constexpr const char* kBeach =
    " +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12 +map mp_beach";

const Row kRows[] = {
    {"C:\\Red Storm\\GhostRecon.exe", kUnread, kMyServer, kMyClient, nullptr, " -server 10.0.0.7",
     " -client 10.0.0.7 -port 2346"},
    {"C:\\Red Storm\\GRDemo.exe", kUnread, kMyServer, kMyClient, nullptr, " -server 10.0.0.7",
     " -client 10.0.0.7 -port 2346"},
    {"C:\\My Games\\cstrike.exe", kUsual, kHalfLife, "",
     "C:\\My Games\\hlds.exe| -port 27016  -game tfc  +maxplayers 10 +map 2fort", " -console +connect 10.0.0.7:27016"},
    {"C:\\My Games\\cstrike.exe", kOwn, kMyServer, kMyClient, "C:\\My Games\\hlds.exe| -s <ip> <co>",
     " -console +connect 10.0.0.7-c <name> <so>"},
    {"C:\\My Games\\cstrike.exe", kOwn, "", ":27016",
     "C:\\My Games\\hlds.exe| -port 27016  -game tfc  +maxplayers 10 +map 2fort", " -console +connect 10.0.0.7:27016"},
    {"C:\\dominions\\dom.exe", kUsual, "--tcpserver --nointro --port 1024 -w",
     "--tcpclient --nointro --port 1024 --ipadr", " --tcpserver --nointro --port 1024 -w",
     " --tcpclient --nointro --port 1024 --ipadr 10.0.0.7"},
    {"C:\\dominions\\dom.exe", kOwn, kMyServer, kMyClient, " -s <ip> <co>", " -c <name> <so> 10.0.0.7"},
    {"C:\\EA GAMES\\mohaa.exe", kUsual, kAllied1, "",
     "  +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12 +map dm/mohdm1",
     " connect 10.0.0.7 "},
    {"C:\\EA GAMES\\mohaa.exe", kOwn, kMyServer, kMyClient, " -s <ip> <co>", " connect 10.0.0.7 -c <name> <so>"},
    {"C:\\EA GAMES\\MOHAANetDemo.exe", kUsual, kAllied6, "",
     "  +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12 +map dm/mohdm6",
     " connect 10.0.0.7 "},
    {"C:\\EA GAMES\\MOHAANetDemo.exe", kOwn, kMyServer, kMyClient, " -s <ip> <co>", " connect 10.0.0.7 -c <name> <so>"},
    {"C:\\Wolf\\WolfMP.exe", kUsual, kBeach, "",
     "  +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12 +map mp_beach",
     " connect 10.0.0.7 "},
    {"C:\\Wolf\\WolfMP.exe", kOwn, kMyServer, kMyClient, " -s <ip> <co>", " connect 10.0.0.7 -c <name> <so>"},
    {"C:\\Wolf\\WolfMPDemo.exe", kUsual, kBeach, "",
     "  +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12 +map mp_beach",
     " connect 10.0.0.7 "},
    {"C:\\Wolf\\WolfMPDemo.exe", kOwn, kMyServer, kMyClient, " -s <ip> <co>", " connect 10.0.0.7 -c <name> <so>"},
    {"C:\\OFP\\OperationFlashpoint.exe", kUsual, "", "", nullptr, " -host ", " -connect=10.0.0.7 "},
    {"C:\\OFP\\OperationFlashpoint.exe", kOwn, kMyServer, kMyClient, nullptr, " -host -s <ip> <co>",
     " -connect=10.0.0.7 -c <name> <so>"},
    {"C:\\Half Life\\hl.exe", kUsual, kHalfLife, "",
     "C:\\Half Life\\hlds.exe| -port 27016  -game tfc  +maxplayers 10 +map 2fort", " -console +connect 10.0.0.7:27016"},
    {"C:\\Half Life\\hl.exe", kOwn, "-game tfc  +maxplayers 10 +map 2fort", " +name x",
     "C:\\Half Life\\hlds.exe| -game tfc  +maxplayers 10 +map 2fort", " -console +connect 10.0.0.7 +name x"},
    {"C:\\Quake III Arena\\QUAKE3.EXE", kUsual, "+set dedicated 2 +map q3dm1", "", " +set dedicated 2 +map q3dm1",
     " +connect 10.0.0.7 "},
    {"C:\\Quake III Arena\\QUAKE3.EXE", kOwn, " +map q3dm17", " +name x", "  +map q3dm17",
     " +connect 10.0.0.7  +name x"},
    {"C:\\Quake III Arena\\taquake3.exe", kUsual, "+set dedicated 2 +map mpteam3", "", " +set dedicated 2 +map mpteam3",
     " +connect 10.0.0.7 "},
    {"C:\\Quake III Arena\\taquake3.exe", kOwn, kMyServer, kMyClient, " -s <ip> <co>",
     " +connect 10.0.0.7 -c <name> <so>"},
    {"C:\\UT GOTY\\System\\UnrealTournament.exe", kUsual, " server DM-Agony.unr", "",
     "C:\\UT GOTY\\System\\ucc.exe|  server DM-Agony.unr", " 10.0.0.7 "},
    {"C:\\UT GOTY\\System\\UnrealTournament.exe", kOwn, kMyServer, kMyClient,
     "C:\\UT GOTY\\System\\ucc.exe| -s <ip> <co>", " 10.0.0.7 -c <name> <so>"},
    {"C:\\UT2003\\System\\UT2003.exe", kUsual, " server DM-Antalus.ut2", "",
     "C:\\UT2003\\System\\ucc.exe|  server DM-Antalus.ut2", " 10.0.0.7 "},
    {"C:\\UT2003\\System\\UT2003.exe", kOwn, kMyServer, kMyClient, "C:\\UT2003\\System\\ucc.exe| -s <ip> <co>",
     " 10.0.0.7 -c <name> <so>"},
    {"C:\\Kohan\\Kohan_AG.exe", kUnread, kMyServer, kMyClient, nullptr, " hostdefault", " connect 10.0.0.7"},
    {"C:\\SoF2 Test\\SoF2MP-Test.exe", kUsual, "+set dedicated 1 +map mp_shop", "", " +set dedicated 1 +map mp_shop",
     " +connect 10.0.0.7:20101 "},
    {"C:\\SoF2 Test\\SoF2MP-Test.exe", kOwn, kMyServer, kMyClient, " -s <ip> <co>",
     " +connect 10.0.0.7:20101 -c <name> <so>"},
    {"C:\\Warcraft III\\Warcraft III.exe", kUnread, kMyServer, kMyClient, nullptr, ""},
    {"C:\\Squad\\SquadAssaultWestFront.exe", kUnread, kMyServer, kMyClient, nullptr, " -host -10.0.0.7 -Ann <ip>",
     " -client -10.0.0.7 -Ann <ip>"},
    {"C:\\Matrix Games\\HTTR.exe", kUsual, " -port 1944", " -port 1944", nullptr, " -server  -port 1944",
     " -connect 10.0.0.7  -port 1944"},
    {"C:\\Matrix Games\\HTTR.exe", kOwn, kMyServer, kMyClient, nullptr, " -server -s <ip> <co>",
     " -connect 10.0.0.7 -c <name> <so>"},
    {"C:\\Warlords\\Warlords4.exe", kUnread, kMyServer, kMyClient, nullptr, " -CREATE",
     " -JOIN -IP0:10.0.0.7 PLAYERNAME:Ann <ip>"},
    // Other spellings, and paths with the other separator
    {"c:\\Q3\\quake3.exe", kUsual, "+set dedicated 2 +map q3dm1", "", " +set dedicated 2 +map q3dm1",
     " +connect 10.0.0.7 "},
    {"C:\\OLD\\WARCRAFT iii.EXE", kUnread, kMyServer, kMyClient, nullptr, ""},
    {"/opt/half life/HL.EXE", kUsual, kHalfLife, "",
     "/opt/half life/hlds.exe| -port 27016  -game tfc  +maxplayers 10 +map 2fort", " -console +connect 10.0.0.7:27016"},
    {"/opt/ut2003/UT2003.exe", kOwn, kMyServer, kMyClient, "/opt/ut2003/ucc.exe| -s <ip> <co>",
     " 10.0.0.7 -c <name> <so>"},
    {"Z:\\home/ann\\hl.exe", kOwn, "+map x", ":1", "Z:\\home/ann\\hlds.exe| +map x", " -console +connect 10.0.0.7:1"},
};

} // namespace

TEST_F(DirectIP, EachGameIsStartedByItsOwnCommandOnEitherSide) {
    for (const Row& row : kRows) {
        std::vector<std::optional<Options>> ways{Options{row.serverOptions, row.clientOptions}};
        if (row.way != kOwn) ways.insert(ways.end(), {std::nullopt, Options{"", ""}});
        for (std::size_t way = 0; way < ways.size(); ++way) {
            SCOPED_TRACE(testing::Message() << row.path << ", options of row " << &row - kRows << ", way " << way);
            Stores(row.path, ways[way]);
            const std::string path = row.path;
            EXPECT_EQ(Shown(Command(path, true)), path + "|" + row.creator);
            Lines told;
            if (row.server != nullptr)
                told = {"shell " + (*row.server == ' ' ? path + "|" + row.server : row.server), "sleep 10000"};
            EXPECT_EQ(processes.told, told);
            EXPECT_EQ(Shown(Command(path, false)), path + "|" + row.member);
            EXPECT_EQ(processes.told, Lines{}) << "a member starts no server";
        }
    }
}

TEST_F(DirectIP, AGameInNoRowGetsNoCommandAndNoServer) {
    for (const char* path : {"hl.exe", "", "C:\\Games\\", "C:\\Games\\hl.exe\\", "C:\\Games\\hl", "C:\\Games\\xhl.exe",
                             "C:\\Games\\hl.exe.exe", "C:\\Games/hl.exe", "C:\\Games\\chess.exe"}) {
        EXPECT_TRUE(Command(path, true).Empty()) << path;
        EXPECT_TRUE(Command(path, false).Empty()) << path;
        EXPECT_EQ(processes.told, Lines{}) << path;
    }
}

TEST_F(DirectIP, BlanksOfThePathDivideNothingAndThoseOfTheOptionsDo) {
    const struct {
        const char* path;
        Options options;
        const char *server, *game;
    } kCases[] = {
        {"C:\\Half Life\\hl.exe",
         {},
         "-port|27016|-game|tfc|+maxplayers|10|+map|2fort|",
         "-console|+connect|10.0.0.7:27016|"},
        {"C:\\UT GOTY\\UT2003.exe", {}, "server|DM-Antalus.ut2|", "10.0.0.7|"},
        {"C:\\Q 3\\quake3.exe",
         {"+set motd \"Hello there\"", " +name \"\" "},
         "+set|motd|Hello there|",
         "+connect|10.0.0.7|+name||"},
        {"C:\\dom 3\\dom.exe",
         {},
         "--tcpserver|--nointro|--port|1024|-w|",
         "--tcpclient|--nointro|--port|1024|--ipadr|10.0.0.7|"},
    };
    for (const auto& row : kCases) {
        Stores(row.path, row.options);
        EXPECT_EQ(Listed(Command(row.path, true)), row.game) << row.path;
        ASSERT_EQ(processes.started.size(), 1u) << row.path;
        EXPECT_EQ(Listed(processes.started[0]), row.server) << row.path;
    }
}

TEST_F(DirectIP, TheUserHearsOfAServerThatDoesNotStartAndTheGameIsStartedAllTheSame) {
    const struct {
        const char *path, *box, *logged, *trace;
    } kCases[] = {
        {"C:\\dom.exe", "Error: could not launch Dominions server.", nullptr, "Dominions server launched successfully"},
        {"C:\\cstrike.exe", "Error: could not launch server.",
         "Error: could not launch CounterStrike server in module CounterStrike()",
         "CounterStrike server launched successfully"},
        {"C:\\mohaa.exe", "Error: could not launch server.",
         "Error: could not launch Medal Of Honor server in module MedalOfHonor()",
         "Medal Of Honor server launched successfully"},
        {"C:\\WolfMPDemo.exe", "Error: could not launch server.", nullptr, "RTCW server launched successfully"},
        {"C:\\hl.exe", "Error: could not launch server.",
         "Error: could not launch HalfLife server in module HalfLife()", "HalfLife server launched successfully"},
        {"C:\\taquake3.exe", "Error: could not launch server.",
         "Error: could not launch Quake3 server in module Quake3()", "Quake3 server launched successfully"},
        {"C:\\UT2003.exe", "Error: could not launch server.",
         "Error: could not launch UnRealTournament server in module UnRealTournament()",
         "UnRealTournament server launched successfully"},
        {"C:\\SoF2MP-Test.exe", "Error: could not launch server.",
         "Error: could not launch SOF2 server in module SOF2()", "SOF2 server launched successfully"},
    };
    Lines logged;
    for (const auto& row : kCases) {
        const CommandLine game = Command(row.path, true);
        logged.emplace_back(row.trace);
        EXPECT_EQ(Logged(), logged) << row.path;

        processes = {};
        processes.startsFail = true;
        user.Then([&] {
            auto& box = dynamic_cast<MessageBoxForm&>(*stack.Top());
            processes.told.push_back("box " + box.Text());
            box.Press(BoxResult::Ok);
        });
        EXPECT_EQ(launch.GetCommandLineParameters(row.path, true, kIP, kName).text, game.text);
        ASSERT_EQ(processes.told.size(), 3u) << row.path;
        EXPECT_EQ(processes.told[1] + ", " + processes.told[2], std::string("box ") + row.box + ", sleep 10000");
        ASSERT_EQ(Logged().size(), logged.size() + 1) << row.path;
        const std::string line = Logged().back();
        EXPECT_EQ(line, row.logged == nullptr ? line : row.logged);
        const std::string named(row.trace, std::string_view(row.trace).find(" server"));
        EXPECT_TRUE(line.starts_with("Error: ") && line.find(named) != std::string::npos) << line;
        logged.push_back(line);
        EXPECT_EQ(Logged(), logged) << row.path;
    }
}

TEST_F(DirectIP, AServersFailureIsToldInTheWordsOfAGamesFailureInAnotherLanguage) {
    Lies("[CurrentLanguage]\nLanguage=Deutsch\n[Deutsch]\nError14=Startet nicht.\n");
    user.Then([&] {
        auto& box = dynamic_cast<MessageBoxForm&>(*stack.Top());
        EXPECT_EQ(box.Text(), "Startet nicht.");
        box.Press(BoxResult::Ok);
    });
    processes.startsFail = true;
    launch.GetCommandLineParameters("C:\\dom.exe", true, kIP, kName);
    EXPECT_TRUE(user.Done());
}

TEST_F(DirectIP, EachRoutineBuildsItsGamesCommandWhateverTheFileIsNamed) {
    using Game = clsDIPServerLaunch;
    using Text = std::string_view;
    const std::string path = "D:\\renamed.exe";
    const struct {
        CommandLine (Game::*routine)(Text, bool, Text);
        const char* member;
    } kPlain[] = {
        {&Game::Dominions, " --tcpclient --nointro --port 1024 --ipadr 10.0.0.7"},
        {&Game::GhostRecon, " -client 10.0.0.7 -port 2346"},
        {&Game::CounterStrike, " -console +connect 10.0.0.7:27016"},
        {&Game::RTCW, " connect 10.0.0.7 "},
        {&Game::OperationFlashPoint, " -connect=10.0.0.7 "},
        {&Game::HalfLife, " -console +connect 10.0.0.7:27016"},
        {&Game::Kohan, " connect 10.0.0.7"},
        {&Game::HighwayToTheReich, " -connect 10.0.0.7  -port 1944"},
    };
    for (const auto& row : kPlain) EXPECT_EQ(Shown((launch.*row.routine)(path, false, kIP)), path + "|" + row.member);
    const struct {
        CommandLine (Game::*routine)(Text, bool, Text, Text);
        const char *server, *creator;
    } kWithDefault[] = {
        {&Game::MedalOfHonor, "D:\\renamed.exe| +map y", " connect 10.0.0.7 "},
        {&Game::Quake3, "D:\\renamed.exe| +map y", " +connect 10.0.0.7 "},
        {&Game::UnRealTournament, "D:\\ucc.exe| +map y", " 10.0.0.7 "},
        {&Game::SOF2, "D:\\renamed.exe| +map y", " +connect 10.0.0.7:20101 "},
    };
    for (const auto& row : kWithDefault) {
        processes = {};
        EXPECT_EQ(Shown((launch.*row.routine)(path, true, kIP, "+map y")), path + "|" + row.creator);
        EXPECT_EQ(processes.told, (Lines{std::string("shell ") + row.server, "sleep 10000"}));
    }
    EXPECT_EQ(Shown(launch.SquadAssault(path, false, kIP, "Bob")), path + "| -client -10.0.0.7 -Bob");
    EXPECT_EQ(Shown(launch.Warlords4(path, false, kIP, "Bob")), path + "| -JOIN -IP0:10.0.0.7 PLAYERNAME:Bob");
}

TEST_F(DirectIP, OptionsBelongToTheExecutable) {
    inis.Write("AV.ini", "QUAKE3", "ServerOptions", " mine");
    const struct {
        const char *path, *options;
    } kCases[] = {
        {"C:\\Quake3\\QUAKE3.EXE", " mine"},
        {"D:\\quake3.bat", " mine"},
        {"D:\\quake3.exe.bat", "usual"},
        {"QUAKE3.EXE", "usual"},
        {"C:\\QUAKE3", "usual"},
    };
    for (const auto& row : kCases) EXPECT_EQ(launch.GetIniFileOptions(row.path, "usual", "ServerOptions"), row.options);
    EXPECT_EQ(launch.GetIniFileOptions("C:\\QUAKE3.EXE", "usual", "ClientOptions"), "usual");
}

TEST_F(DirectIP, NoOptionsAreReadForAGameWithoutAny) {
    WatchedFiles watched;
    IniFiles watchedInis{watched, "/windows"};
    Profile watchedProfile{watchedInis, trap};
    clsDIPServerLaunch other{Desk{view, session, link, messages, language, settings, watchedProfile, trap}, processes};
    const auto lookUps = [&](const char* path, bool isCreator) {
        watched.lookUps = 0;
        other.GetCommandLineParameters(path, isCreator, kIP, kName);
        return watched.lookUps;
    };
    for (const Row& row : kRows)
        EXPECT_EQ(lookUps(row.path, true) + lookUps(row.path, false) == 0, row.way == kUnread) << row.path;
}

} // namespace ombrin::test

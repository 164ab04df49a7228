// The games that are told on their command line to host or to connect: one table, a row an executable.
#pragma once

#include <array>
#include <string_view>

namespace ombrin {

/// Templates hold <path> (the game file as stored), <dir> (its directory), <ip>, <name> (the user), <so> and <co> (the
/// server and the client options). "\" stands for the stored path's own separator. An empty server template: no
/// dedicated server. Where a second template stands, it holds when the options are not the default.
struct DirectIPGame {
    std::string_view executable = {}; ///< compared without regard to case
    std::string_view routine = {};
    std::string_view serverOptions = {}, clientOptions = {}; ///< the defaults
    std::string_view server = {}, ownServer = {};
    std::string_view creator = {}, member = {}, own = {}; ///< `own`: on both sides with own client options
    bool throughBattleLan = false;                        ///< the creator starts that first
};

namespace direct_ip {

inline constexpr std::string_view kHalfLifeDefault = " -game tfc  +maxplayers 10 +map 2fort";
inline constexpr std::string_view kHalfLifeServer = "<dir>\\hlds.exe -port 27016 <so>",
                                  kHalfLifeOwnServer = "<dir>\\hlds.exe <so>";
inline constexpr std::string_view kHalfLife = "<path> -console +connect <ip>:27016",
                                  kHalfLifeOwn = "<path> -console +connect <ip><co>";
inline constexpr std::string_view kConnect = "<path> connect <ip> <co>";
inline constexpr std::string_view kPlusConnect = "<path> +connect <ip> <co>";
inline constexpr std::string_view kGhostReconHost = "<path> -server <ip>",
                                  kGhostReconJoin = "<path> -client <ip> -port 2346";
inline constexpr std::string_view kWolfOptions =
    " +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12 +map mp_beach";

// clang-format off
inline constexpr std::array kGames{
    DirectIPGame{.executable = "GhostRecon.exe", .routine = "GhostRecon",
                 .creator = kGhostReconHost, .member = kGhostReconJoin},
    DirectIPGame{.executable = "GRDemo.exe", .routine = "GhostRecon",
                 .creator = kGhostReconHost, .member = kGhostReconJoin},
    DirectIPGame{.executable = "cstrike.exe", .routine = "CounterStrike",
                 .serverOptions = kHalfLifeDefault, .server = kHalfLifeServer, .ownServer = kHalfLifeOwnServer,
                 .creator = kHalfLife, .member = kHalfLife, .own = kHalfLifeOwn},
    DirectIPGame{.executable = "dom.exe", .routine = "Dominions",
                 .serverOptions = "--tcpserver --nointro --port 1024 -w",
                 .clientOptions = "--tcpclient --nointro --port 1024 --ipadr",
                 .server = "<path> <so>", .creator = "<path> <co> <ip>", .member = "<path> <co> <ip>"},
    DirectIPGame{.executable = "mohaa.exe", .routine = "MedalOfHonor",
                 .serverOptions = " +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12"
                                  " +map dm/mohdm1",
                 .server = "<path> <so>", .creator = kConnect, .member = kConnect},
    DirectIPGame{.executable = "MOHAANetDemo.exe", .routine = "MedalOfHonor",
                 .serverOptions = " +set dedicated 1 +set ui_console 1 +set g_gametype 3 +set sv_maxclients 12"
                                  " +map dm/mohdm6",
                 .server = "<path> <so>", .creator = kConnect, .member = kConnect},
    DirectIPGame{.executable = "WolfMP.exe", .routine = "RTCW", .serverOptions = kWolfOptions,
                 .server = "<path> <so>", .creator = kConnect, .member = kConnect},
    DirectIPGame{.executable = "WolfMPDemo.exe", .routine = "RTCW", .serverOptions = kWolfOptions,
                 .server = "<path> <so>", .creator = kConnect, .member = kConnect},
    DirectIPGame{.executable = "OperationFlashpoint.exe", .routine = "OperationFlashPoint",
                 .creator = "<path> -host <so>", .member = "<path> -connect=<ip> <co>"},
    DirectIPGame{.executable = "hl.exe", .routine = "HalfLife",
                 .serverOptions = kHalfLifeDefault, .server = kHalfLifeServer, .ownServer = kHalfLifeOwnServer,
                 .creator = kHalfLife, .member = kHalfLife, .own = kHalfLifeOwn},
    DirectIPGame{.executable = "QUAKE3.EXE", .routine = "Quake3", .serverOptions = "+set dedicated 2 +map q3dm1",
                 .server = "<path> <so>", .creator = kPlusConnect, .member = kPlusConnect},
    DirectIPGame{.executable = "taquake3.exe", .routine = "Quake3", .serverOptions = "+set dedicated 2 +map mpteam3",
                 .server = "<path> <so>", .creator = kPlusConnect, .member = kPlusConnect},
    DirectIPGame{.executable = "UnrealTournament.exe", .routine = "UnRealTournament",
                 .serverOptions = " server DM-Agony.unr",
                 .server = "<dir>\\ucc.exe <so>", .creator = "<path> <ip> <co>", .member = "<path> <ip> <co>"},
    DirectIPGame{.executable = "UT2003.exe", .routine = "UnRealTournament",
                 .serverOptions = " server DM-Antalus.ut2",
                 .server = "<dir>\\ucc.exe <so>", .creator = "<path> <ip> <co>", .member = "<path> <ip> <co>"},
    DirectIPGame{.executable = "Kohan_AG.exe", .routine = "Kohan",
                 .creator = "<path> hostdefault", .member = "<path> connect <ip>"},
    DirectIPGame{.executable = "SoF2MP-Test.exe", .routine = "SOF2",
                 .serverOptions = "+set dedicated 1 +map mp_shop", .server = "<path> <so>",
                 .creator = "<path> +connect <ip>:20101 <co>", .member = "<path> +connect <ip>:20101 <co>"},
    DirectIPGame{.executable = "Warcraft III.exe", .routine = "WarcraftIII",
                 .creator = "<path>", .member = "<path>", .throughBattleLan = true},
    DirectIPGame{.executable = "SquadAssaultWestFront.exe", .routine = "SquadAssault",
                 .creator = "<path> -host -<ip> -<name>", .member = "<path> -client -<ip> -<name>"},
    DirectIPGame{.executable = "HTTR.exe", .routine = "HighwayToTheReich",
                 .serverOptions = " -port 1944", .clientOptions = " -port 1944",
                 .creator = "<path> -server <so>", .member = "<path> -connect <ip> <co>"},
    DirectIPGame{.executable = "Warlords4.exe", .routine = "Warlords4",
                 .creator = "<path> -CREATE", .member = "<path> -JOIN -IP0:<ip> PLAYERNAME:<name>"},
};
// clang-format on

/// Games that leave word of their directory in the registry; the executable is compared exactly.
struct RegistryRow {
    std::string_view executable, key, value;
};

inline constexpr std::array kRegistryRows{
    RegistryRow{"SquadAssaultWestFront.exe", "HKEY_LOCAL_MACHINE\\SOFTWARE\\Matrix Games\\Squad Assault - West Front",
                "installed to"},
};

} // namespace direct_ip

} // namespace ombrin

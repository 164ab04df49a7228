// Command lines of the games that host or connect by their command line, and the start of their dedicated servers.
#pragma once

#include "launch/battle_lan.h"
#include "launch/direct_ip_games.h"
#include "lobby/desk.h"
#include "platform/processes.h"
#include "platform/registry.h"

#include <string>
#include <string_view>

namespace ombrin {

/// The class without a state that the launch asks; each routine answers the game's command line for one side. On the
/// creator's side the routines of games with a dedicated server start that first, and return after a blocking wait of
/// kServerWait.
class clsDIPServerLaunch {
public:
    static constexpr long kServerWait = 10'000; ///< milliseconds

    using Text = std::string_view;

    /// Without `battleLan` the game that needs it starts alone.
    clsDIPServerLaunch(Desk desk, Processes& processes, BattleLan* battleLan = nullptr)
        : desk(desk), processes(processes), battleLan(battleLan) {}

    /// Empty for a game that is in no row of the table.
    CommandLine GetCommandLineParameters(Text path, bool isCreator, Text launchIP, Text userName);
    /// Where the game has left word of itself, the file not looked for; "" for others.
    static std::string CheckRegistryForDirectIPGame(Registry& registry, Text executable);
    CommandLine Warlords4(Text path, bool isCreator, Text launchIP, Text userName);
    CommandLine SquadAssault(Text path, bool isCreator, Text launchIP, Text userName);
    CommandLine Dominions(Text path, bool isCreator, Text launchIP);
    CommandLine GhostRecon(Text path, bool isCreator, Text launchIP);
    CommandLine CounterStrike(Text path, bool isCreator, Text launchIP);
    CommandLine MedalOfHonor(Text path, bool isCreator, Text launchIP, Text defaultServerOptions);
    /// The stored option of the game's executable; an empty one means the default.
    std::string GetIniFileOptions(Text path, Text missing, Text key);
    CommandLine RTCW(Text path, bool isCreator, Text launchIP);
    CommandLine OperationFlashPoint(Text path, bool isCreator, Text launchIP);
    CommandLine HalfLife(Text path, bool isCreator, Text launchIP);
    CommandLine Quake3(Text path, bool isCreator, Text launchIP, Text defaultServerOptions);
    CommandLine UnRealTournament(Text path, bool isCreator, Text launchIP, Text defaultServerOptions);
    CommandLine Kohan(Text path, bool isCreator, Text launchIP);
    CommandLine SOF2(Text path, bool isCreator, Text launchIP, Text defaultServerOptions);
    CommandLine HighwayToTheReich(Text path, bool isCreator, Text launchIP);

private:
    struct Request {
        Text path;
        bool isCreator;
        Text launchIP, userName, defaultServerOptions;
    };
    CommandLine Build(const DirectIPGame& game, const Request& request);
    CommandLine ByRoutine(Text routine, const Request& request);
    void StartServer(const DirectIPGame& game, const Request& request);
    static CommandLine Fill(Text pattern, const Request& request, Text serverOptions, Text clientOptions);

    Desk desk;
    Processes& processes;
    BattleLan* battleLan;
};

} // namespace ombrin

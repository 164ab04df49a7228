#include "launch/direct_ip_launch.h"

#include "foundation/text.h"
#include "launch/game_paths.h"

#include <algorithm>

namespace ombrin {

namespace {

/// What is said and written of a dedicated server, by the routine that starts it.
struct ServerTexts {
    std::string_view routine, failure, log, success;
};

constexpr std::string_view kServerFailure = "Error: could not launch server.";

// clang-format off
constexpr std::array kServerTexts{
    ServerTexts{"Dominions", "Error: could not launch Dominions server.",
                "Error: could not launch Dominions server in module Dominions()",
                "Dominions server launched successfully"},
    ServerTexts{"CounterStrike", kServerFailure,
                "Error: could not launch CounterStrike server in module CounterStrike()",
                "CounterStrike server launched successfully"},
    ServerTexts{"MedalOfHonor", kServerFailure,
                "Error: could not launch Medal Of Honor server in module MedalOfHonor()",
                "Medal Of Honor server launched successfully"},
    ServerTexts{"RTCW", kServerFailure,
                "Error: could not launch RTCW server in module RTCW()",
                "RTCW server launched successfully"},
    ServerTexts{"HalfLife", kServerFailure,
                "Error: could not launch HalfLife server in module HalfLife()",
                "HalfLife server launched successfully"},
    ServerTexts{"Quake3", kServerFailure,
                "Error: could not launch Quake3 server in module Quake3()",
                "Quake3 server launched successfully"},
    ServerTexts{"UnRealTournament", kServerFailure,
                "Error: could not launch UnRealTournament server in module UnRealTournament()",
                "UnRealTournament server launched successfully"},
    ServerTexts{"SOF2", kServerFailure,
                "Error: could not launch SOF2 server in module SOF2()",
                "SOF2 server launched successfully"},
};
// clang-format on

const ServerTexts& TextsOf(std::string_view routine) {
    return *std::find_if(kServerTexts.begin(), kServerTexts.end(),
                         [&](const ServerTexts& row) { return row.routine == routine; });
}

constexpr bool EveryServerHasItsTexts() {
    return std::all_of(direct_ip::kGames.begin(), direct_ip::kGames.end(), [](const DirectIPGame& game) {
        return game.server.empty() || std::any_of(kServerTexts.begin(), kServerTexts.end(),
                                                  [&](const ServerTexts& row) { return row.routine == game.routine; });
    });
}
static_assert(EveryServerHasItsTexts());

} // namespace

CommandLine clsDIPServerLaunch::GetCommandLineParameters(Text path, bool isCreator, Text launchIP, Text userName) {
    CommandLine command;
    desk.trap(__func__, [&] {
        const std::string_view file = FileOf(path);
        for (const DirectIPGame& game : direct_ip::kGames) {
            if (!EqualIgnoringCase(game.executable, file)) continue;
            command = Build(game, {path, isCreator, launchIP, userName, game.serverOptions});
            return;
        }
    });
    return command;
}

std::string clsDIPServerLaunch::CheckRegistryForDirectIPGame(Registry& registry, Text executable) {
    constexpr std::size_t kValueLength = 249; // characters of a value that are read
    for (const direct_ip::RegistryRow& row : direct_ip::kRegistryRows) {
        if (row.executable != executable) continue;
        const auto value = registry.Read(row.key, row.value);
        const auto* directory = value ? std::get_if<std::string>(&*value) : nullptr;
        if (directory != nullptr) return Join(directory->substr(0, kValueLength), "\\", executable);
    }
    return {};
}

CommandLine clsDIPServerLaunch::Build(const DirectIPGame& game, const Request& request) {
    CommandLine command;
    desk.trap(game.routine, [&] {
        if (request.isCreator && !game.server.empty()) StartServer(game, request);
        if (request.isCreator && game.throughBattleLan && battleLan != nullptr)
            battleLan->LaunchUsingBattleLAN(desk.view.RoomUserList.rows);
        Text pattern = request.isCreator ? game.creator : game.member;
        const auto optionsOf = [&](Text mark, Text missing, Text key) {
            const bool read = pattern.find(mark) != Text::npos || (mark == "<co>" && !game.own.empty());
            return read ? GetIniFileOptions(request.path, missing, key) : std::string(missing);
        };
        const std::string serverOptions = optionsOf("<so>", request.defaultServerOptions, "ServerOptions");
        const std::string clientOptions = optionsOf("<co>", game.clientOptions, "ClientOptions");
        if (!game.own.empty() && clientOptions != game.clientOptions) pattern = game.own;
        command = Fill(pattern, request, serverOptions, clientOptions);
    });
    return command;
}

void clsDIPServerLaunch::StartServer(const DirectIPGame& game, const Request& request) {
    const std::string options = GetIniFileOptions(request.path, request.defaultServerOptions, "ServerOptions");
    const bool own = !game.ownServer.empty() && options != request.defaultServerOptions;
    const ServerTexts& texts = TextsOf(game.routine);
    if (processes.Shell(Fill(own ? game.ownServer : game.server, request, options, "")) == Processes::kNone) {
        desk.messages.DisplayMessage(texts.failure, text::kError14.key);
        desk.trap.log.LogError(texts.log, false);
    } else {
        desk.TraceMessage(texts.success);
    }
    processes.Sleep(kServerWait);
}

/// The program is what stands before the pattern's first blank, however many blanks the path brings.
CommandLine clsDIPServerLaunch::Fill(Text pattern, const Request& request, Text serverOptions, Text clientOptions) {
    const struct {
        Text mark, value;
    } kMarks[] = {
        {"<path>", request.path},          {"<dir>", DirectoryOf(request.path)},
        {"<ip>", request.launchIP},        {"<name>", request.userName},
        {"<so>", serverOptions},           {"<co>", clientOptions},
        {"\\", SeparatorOf(request.path)},
    };
    CommandLine command;
    bool inProgram = true;
    while (!pattern.empty()) {
        const auto* mark = std::find_if(std::begin(kMarks), std::end(kMarks),
                                        [&](const auto& row) { return pattern.starts_with(row.mark); });
        if (pattern.front() == ' ') inProgram = false;
        command.text += mark == std::end(kMarks) ? pattern.substr(0, 1) : mark->value;
        if (inProgram) command.programLength = command.text.size();
        pattern.remove_prefix(mark == std::end(kMarks) ? 1 : mark->mark.size());
    }
    return command;
}

std::string clsDIPServerLaunch::GetIniFileOptions(Text path, Text missing, Text key) {
    const std::string options = desk.profile.ReadIniValue("AV.ini", ExeBase(path), key);
    return options.empty() ? std::string(missing) : options;
}

CommandLine clsDIPServerLaunch::ByRoutine(Text routine, const Request& request) {
    const auto* game = std::find_if(direct_ip::kGames.begin(), direct_ip::kGames.end(),
                                    [&](const DirectIPGame& row) { return row.routine == routine; });
    Request filled = request;
    if (filled.defaultServerOptions.empty()) filled.defaultServerOptions = game->serverOptions;
    return Build(*game, filled);
}

CommandLine clsDIPServerLaunch::Warlords4(Text path, bool isCreator, Text launchIP, Text userName) {
    return ByRoutine(__func__, {path, isCreator, launchIP, userName, {}});
}
CommandLine clsDIPServerLaunch::SquadAssault(Text path, bool isCreator, Text launchIP, Text userName) {
    return ByRoutine(__func__, {path, isCreator, launchIP, userName, {}});
}
CommandLine clsDIPServerLaunch::Dominions(Text path, bool isCreator, Text launchIP) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, {}});
}
CommandLine clsDIPServerLaunch::GhostRecon(Text path, bool isCreator, Text launchIP) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, {}});
}
CommandLine clsDIPServerLaunch::CounterStrike(Text path, bool isCreator, Text launchIP) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, {}});
}
CommandLine clsDIPServerLaunch::MedalOfHonor(Text path, bool isCreator, Text launchIP, Text defaultServerOptions) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, defaultServerOptions});
}
CommandLine clsDIPServerLaunch::RTCW(Text path, bool isCreator, Text launchIP) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, {}});
}
CommandLine clsDIPServerLaunch::OperationFlashPoint(Text path, bool isCreator, Text launchIP) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, {}});
}
CommandLine clsDIPServerLaunch::HalfLife(Text path, bool isCreator, Text launchIP) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, {}});
}
CommandLine clsDIPServerLaunch::Quake3(Text path, bool isCreator, Text launchIP, Text defaultServerOptions) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, defaultServerOptions});
}
CommandLine clsDIPServerLaunch::UnRealTournament(Text path, bool isCreator, Text launchIP, Text defaultServerOptions) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, defaultServerOptions});
}
CommandLine clsDIPServerLaunch::Kohan(Text path, bool isCreator, Text launchIP) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, {}});
}
CommandLine clsDIPServerLaunch::SOF2(Text path, bool isCreator, Text launchIP, Text defaultServerOptions) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, defaultServerOptions});
}
CommandLine clsDIPServerLaunch::HighwayToTheReich(Text path, bool isCreator, Text launchIP) {
    return ByRoutine(__func__, {path, isCreator, launchIP, {}, {}});
}

} // namespace ombrin

#include "launch/directplay/direct_play.h"

#include "foundation/text.h"
#include "launch/game_paths.h"
#include "launch/trust.h"
#include "session/wire/codec.h"

#include <algorithm>
#include <array>

namespace ombrin {

using namespace directplay;

namespace {

/// The TCP/IP provider's name, which is in the language of the installed system.
constexpr std::array<std::string_view, 5> kTcpIpProviders{
    "Internet TCP/IP Connection For DirectPlay",
    "Connexion Internet TCP/IP pour DirectPlay",
    "Internett TCP/IP-tilkobling for DirectPlay",
    "Internet TCP/IP-anslutning f\xF6r Direct Play",
    "Po\xB3\xB9"
    "czenie Internet TCP/IP dla DirectPlay",
};

/// Games that want the room's name in a settings file of their own.
struct FlightSimulator {
    std::string_view guid, key, file;
};
constexpr std::array kFlightSimulators{
    FlightSimulator{"{1F0CB318-F159-432F-8C38-8CE753A03CDA}",
                    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay\\Applications\\FS2000", "FS2000.cfg"},
    FlightSimulator{"{97C62470-5F53-4098-A8BB-7F1F93B94D93}",
                    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay\\Applications\\Flight Simulator 2002",
                    "FS2002.cfg"},
};

constexpr long kFlightSimulatorDelay = 15'000; ///< milliseconds, for those who join
constexpr int kMostPairs = 199;                ///< of one message
constexpr int kAnyPort = 0;
constexpr long kAnyNumber = 0;

/// Of the last entry whose name fits; "" without one.
template <class Fits>
std::string LastGuid(const std::unique_ptr<Enumeration>& list, Fits fits) {
    if (!list) throw RuntimeError(ErrorNumber::ObjectNotSet, "DirectPlay is not there on this machine");
    std::string guid;
    for (int i = 1; i <= list->GetCount(); ++i)
        if (fits(list->GetName(i))) guid = list->GetGuid(i);
    return guid;
}

} // namespace

void DirectPlay::InitDirectX() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("initializing DirectX");
        if (!objDX) objDX = needs.service.CreateDirectX7();
        objDPLobby = objDX->DirectPlayLobbyCreate();
        objDP4 = objDX->DirectPlayCreate("");
        objDPEnumLocApps = objDPLobby->GetDPEnumLocalApplications();
        objDPEnumServProv = objDP4->GetDPEnumConnections("", kDirectPlay);
        objDPLobbyConnection = objDPLobby->CreateConnectionData();
        objDPSessionData = objDP4->CreateSessionData();
        directPlay8.InitDirectX8();
    });
}

/// On a machine without the service the list stays empty, and one report, that of InitDirectX, is enough.
void DirectPlay::EnumDPLocApps() {
    desk.trap(__func__, [&] {
        if (!objDPEnumLocApps) return;
        for (int i = 1; i <= objDPEnumLocApps->GetCount(); ++i) (m_DPGameList += objDPEnumLocApps->GetName(i)) += ';';
        directPlay8.GetDirectPlay8Games(m_DPGameList);
    });
}

void DirectPlay::LaunchDPGame(std::string_view launchIP) {
    desk.trap(__func__, [&] {
        const Session& session = desk.session;
        const std::string name = records.DirectPlayApplication(session.m_CurrentLobby), address = Address(launchIP);
        if (!MayLaunchAt(address, desk.trap.log)) return;
        if (directPlay8.DirectPlay8Game(name)) {
            directPlay8.LaunchDP8Game(
                {address, session.m_CurrentRoom, session.m_UserName, session.m_CurrentLobby, session.m_IsRoomCreator});
            return;
        }
        const std::string provider = ServiceProvider();
        if (provider.empty()) {
            desk.trap.log.LogError("Error: could not launch the game, no DirectPlay service provider found.", true);
            return;
        }
        const std::string application = LastGuid(objDPEnumLocApps, [&](const auto& entry) { return entry == name; });
        if (application.empty()) {
            desk.trap.log.LogError("Error: could not launch the game, could not find the game's ApID.", true);
            return;
        }
        DescribeSession(application);
        DescribeConnection(address, provider);
        if (!session.m_IsRoomCreator) needs.processes.Sleep(kJoinDelay);
        objDPLobby->RunApplication(objDPLobbyConnection, 0);
    });
}

std::string DirectPlay::ServiceProvider() {
    return LastGuid(objDPEnumServProv, [](const std::string& name) {
        return std::find(kTcpIpProviders.begin(), kTcpIpProviders.end(), name) != kTcpIpProviders.end();
    });
}

/// One who joins from the lobby knows no creator: the address came with the launch.
std::string DirectPlay::Address(std::string_view launchIP) {
    const Session& session = desk.session;
    if (session.m_IsRoomCreator) return session.m_LocalIP;
    return session.m_CurrentRoom.empty() ? std::string(launchIP) : session.m_RoomHostAddress;
}

void DirectPlay::DescribeSession(const std::string& application) {
    const Session& session = desk.session;
    objDPSessionData.guidApplication = application;
    desk.TraceMessage(Join("LaunchDPGame ApID: ", application));
    objDPSessionData.flags = kSessionKeepAlive | kSessionMigrateHost;
    objDPSessionData.sessionName = session.m_CurrentRoom;
    CheckFS2000(session.m_CurrentRoom, application);
    desk.TraceMessage(Join("LaunchDPGame SetSessionName: ", session.m_CurrentRoom));
    if (session.m_IsRoomCreator) {
        objDPSessionData.maxPlayers = kAnyNumber;
        desk.TraceMessage(Join("LaunchDPGame MaxUsers: ", needs.newRoom.MaxUsers.Text()));
    }
    objDPSessionData.guidInstance = kSessionInstance;
}

void DirectPlay::DescribeConnection(const std::string& address, const std::string& provider) {
    const Session& session = desk.session;
    objDPLobbyConnection.address = objDPLobby->CreateINetAddress(address, kAnyPort);
    desk.TraceMessage(
        Join(session.m_IsRoomCreator ? "LaunchDPGame LocalIP: " : "LaunchDPGame RoomCreatorIP: ", address));
    objDPLobbyConnection.playerShortName = session.m_UserName;
    desk.TraceMessage(Join("LaunchDPGame PlayerShortName: ", session.m_UserName));
    objDPLobbyConnection.playerLongName = session.m_UserName;
    objDPLobbyConnection.guidSP = provider;
    desk.TraceMessage(Join("LaunchDPGame ServProvGUID: ", provider));
    objDPLobbyConnection.sessionDesc = objDPSessionData;
    objDPLobbyConnection.flags = session.m_IsRoomCreator ? kCreateSession : kJoinSession;
}

void DirectPlay::CheckFS2000(std::string_view roomName, std::string_view applicationGuid) {
    desk.trap(__func__, [&] {
        const auto* game = std::find_if(kFlightSimulators.begin(), kFlightSimulators.end(),
                                        [&](const FlightSimulator& row) { return row.guid == applicationGuid; });
        if (game == kFlightSimulators.end()) return;
        const auto held = needs.registry.Read(game->key, "Path");
        const auto* path = held ? std::get_if<std::string>(&*held) : nullptr;
        if (path != nullptr && !path->empty()) WriteSessionName(Join(*path, SeparatorOf(*path), game->file), roomName);
        if (!desk.session.m_IsRoomCreator) needs.processes.Sleep(kFlightSimulatorDelay);
    });
}

/// A game that cannot be told starts all the same.
void DirectPlay::WriteSessionName(const std::string& file, std::string_view roomName) {
    try {
        desk.profile.files.Write(file, "MULTIPLAYER", "SESSION_NAME", roomName);
    } catch (const RuntimeError& problem) {
        desk.trap.log.LogError(Join("Error: the room's name cannot be written to ", file, ": ", problem.what()), false);
    }
}

void DirectPlay::SetDirectPlayGames(std::string_view payload) {
    desk.trap(__func__, [&] {
        desk.TraceMessage("setting auto-start for DP games");
        if (payload.empty()) {
            desk.trap.log.LogError("Error: no data in SetDirectPlayGames().", false);
            return;
        }
        for (int pair = 1; pair <= kMostPairs; ++pair) {
            const std::string game(GetCommand(payload, kFieldEnd)), application(GetCommand(payload, kFieldEnd));
            if (game.empty()) break;
            if (!application.empty()) SetGame(game, application);
        }
        autoStart.CheckAutoStart();
    });
}

void DirectPlay::SetGame(std::string_view game, std::string_view application) {
    bool isHere = false;
    for (int i = 1; objDPEnumLocApps && i <= objDPEnumLocApps->GetCount(); ++i)
        isHere = isHere || objDPEnumLocApps->GetName(i) == application;
    if (!isHere && !directPlay8.DirectPlay8Game(application)) return;
    records.SaveUsesDirectPlay(game, true);
    records.SaveDirectPlayApplication(game, application);
}

} // namespace ombrin

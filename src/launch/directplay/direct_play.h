// Games that have registered themselves with DirectPlay: the service starts them and hands them the session to host or
// to join.
#pragma once

#include "launch/directplay/direct_play8.h"
#include "lobby/auto_start.h"
#include "lobby/new_room.h"

#include <memory>
#include <string>

namespace ombrin {

class DirectPlay {
public:
    struct Needs {
        directplay::Service& service;
        Processes& processes;
        Registry& registry;
        const NewRoom& newRoom;
    };

    DirectPlay(Desk desk, DirectPlay8& directPlay8, AutoStart& autoStart, Needs needs)
        : desk(desk), directPlay8(directPlay8), autoStart(autoStart), needs(needs),
          records(desk.settings, desk.profile) {}

    /// Once, at the start; both lists are read then and not later.
    void InitDirectX();
    /// Appends the names of all applications, DirectPlay 8 last, to m_DPGameList.
    void EnumDPLocApps();
    /// Hosts or joins the room's session in the application of the lobby's game. One who is in no room joins at
    /// `launchIP`, everybody else at the address of the room's creator. A blocking wait on the joining side.
    void LaunchDPGame(std::string_view launchIP);
    /// `<game>;<application>;…`: those whose application is here start by this route from now on.
    void SetDirectPlayGames(std::string_view payload);

    std::string m_DPGameList; ///< names, each followed by ";"
    std::unique_ptr<directplay::DirectX7> objDX;
    std::unique_ptr<directplay::DirectPlayLobby3> objDPLobby;
    std::unique_ptr<directplay::DirectPlay4> objDP4;
    std::unique_ptr<directplay::Enumeration> objDPEnumLocApps, objDPEnumServProv;
    directplay::LobbyConnection objDPLobbyConnection; ///< filled anew by each launch
    directplay::SessionData objDPSessionData;

private:
    std::string ServiceProvider();
    std::string Address(std::string_view launchIP);
    void DescribeSession(const std::string& application);
    void DescribeConnection(const std::string& address, const std::string& provider);
    void CheckFS2000(std::string_view roomName, std::string_view applicationGuid);
    void WriteSessionName(const std::string& file, std::string_view roomName);
    void SetGame(std::string_view game, std::string_view application);

    Desk desk;
    DirectPlay8& directPlay8;
    AutoStart& autoStart;
    Needs needs;
    GameRecords records;
};

} // namespace ombrin

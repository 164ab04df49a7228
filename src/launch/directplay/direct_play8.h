// Games that have registered themselves with DirectPlay 8.
#pragma once

#include "launch/directplay/service.h"
#include "lobby/desk.h"
#include "lobby/game_record.h"
#include "platform/processes.h"
#include "platform/registry.h"

namespace ombrin {

class DirectPlay8 {
public:
    DirectPlay8(Desk desk, directplay::Service& service, Registry& registry, Processes& processes)
        : desk(desk), service(service), registry(registry), processes(processes), records(desk.settings, desk.profile) {
    }

    /// Once, at the start. Creates nothing on a machine without such applications.
    void InitDirectX8();
    /// At the end of the control.
    void DirectX8CleanUp();
    /// Appends each application's name and ";".
    void GetDirectPlay8Games(std::string& list);
    /// By the registry alone, so that an application installed meanwhile is known; compared exactly.
    bool DirectPlay8Game(std::string_view name);

    struct Launch {
        std::string address, room, user, game;
        bool isHost = false;
    };
    /// A blocking wait on the joining side.
    void LaunchDP8Game(const Launch& launch);

private:
    std::int16_t GetSubkeyCount(std::string_view key);
    std::string GuidOf(std::string_view application);

    Desk desk;
    directplay::Service& service;
    Registry& registry;
    Processes& processes;
    GameRecords records;

    std::unique_ptr<directplay::DirectX8> g_DX8;
    std::unique_ptr<directplay::frmDirectPlay> g_DP8EventForm;
    std::unique_ptr<directplay::DirectPlay8LobbyClient> g_DP8LobbyClient; ///< tells the form, so it goes first
    std::int16_t g_DP8AppCount = 0;                                       ///< at the start
    long g_DP8AppHandle = 0;                                              ///< of the last launch; 0 for none
};

} // namespace ombrin

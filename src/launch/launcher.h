// From the press of Launch to the way back into the lobby: the game runs on every machine of the room.
#pragma once

#include "launch/direct_ip_launch.h"
#include "launch/directplay/direct_play.h"
#include "launch/pause_av.h"
#include "lobby/auto_start.h"
#include "lobby/room_position.h"
#include "platform/alarms.h"
#include "platform/desktop.h"

namespace ombrin {

class Launcher {
public:
    /// Members wait so long before they start the game, so that the creator's machine is ready for them.
    static constexpr long kMemberWait = 10'000; ///< milliseconds

    /// What rests while a game runs.
    struct Intermission {
        std::function<void()> begin, end;
    };

    struct Peers {
        AutoStart& autoStart;
        RoomPosition& position;
        BattleLan& battleLan;
        DirectPlay& directPlay;
        Intermission banners;
    };

    Launcher(Desk desk, PauseAV& dialog, Peers peers, Processes& processes, Clipboard& clipboard, Alarms& alarms);
    ~Launcher() { alarms.Cancel(patience); }
    Launcher(const Launcher&) = delete;
    Launcher& operator=(const Launcher&) = delete;

    /// The server starts the game: `<ip>;`, and what follows is not read. Waits until the user resumes.
    void LaunchGame(std::string_view buffer);

private:
    void Launch_Click();
    void JoinServerAndPlay_Click();
    void LaunchDirectIPGame(std::string_view launchIP);
    void WaitForTheServer();
    void ComeBack();

    Desk desk;
    PauseAV& dialog;
    Peers peers;
    Processes& processes;
    Clipboard& clipboard;
    Alarms& alarms;
    GameRecords records;
    clsDIPServerLaunch m_DirectIPLaunch;
    Alarms::Id patience = Alarms::kNone; ///< for a server that does not answer the press
};

} // namespace ombrin

#include "launch/launcher.h"

#include "foundation/text.h"
#include "launch/game_paths.h"
#include "launch/trust.h"
#include "lobby/lobby_views.h"
#include "session/wire/client_message.h"
#include "session/wire/codec.h"

namespace ombrin {

Launcher::Launcher(Desk desk, PauseAV& dialog, Peers peers, Processes& processes, Clipboard& clipboard, Alarms& alarms)
    : desk(desk), dialog(dialog), peers(std::move(peers)), processes(processes), clipboard(clipboard), alarms(alarms),
      records(desk.settings, desk.profile), m_DirectIPLaunch(desk, processes, &this->peers.battleLan) {
    desk.view.Launch.Click = [this] { Launch_Click(); };
    desk.view.JoinServerAndPlay.Click = [this] { JoinServerAndPlay_Click(); };
}

void Launcher::Launch_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Launch game pressed");
        peers.position.Take(RoomEvent::LaunchPressed);
        desk.link.SendData(client_message::Launch(desk.session.m_UserData, desk.session.m_CurrentRoom));
        WaitForTheServer(); // last: a setting that is no number must not keep the game back
    });
}

/// Where a setting names a time, in seconds, the creator has his view back after it.
void Launcher::WaitForTheServer() {
    alarms.Cancel(patience);
    const std::string setting = desk.settings.GetSetting("Settings", "LaunchPatience");
    if (setting.empty()) return;
    const auto epoch = desk.link.Epoch();
    patience = alarms.At(alarms.Now() + std::chrono::seconds(ToInteger(setting)), [this, epoch] {
        if (desk.link.Epoch() != epoch || peers.position.Now() != Position::Launching) return;
        desk.TraceMessage("the server has not answered the launch; the view is enabled again");
        peers.position.Take(RoomEvent::BackAsCreator);
    });
}

void Launcher::JoinServerAndPlay_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("user selected Join server and play from the right click menu");
        if (!desk.session.m_CurrentRoom.empty()) {
            desk.TraceMessage("Error, tried to enter a game server and play but the current room is not NULL");
            return;
        }
        constexpr int kGameRuns = 2; ///< of RoomImages
        const ListView& list = desk.view.RoomList;
        if (list.rows.Count() == 0) return;
        const RowId row = list.SelectedItem();
        if (list.rows.Image(row) != kGameRuns) {
            desk.messages.boxes.ShowPlain("You cannot join this game, it has not started.");
            return;
        }
        if (StrExtractLeft(list.rows.Text(row), " ").empty()) return;
        const std::string address = list.rows.Tag(row);
        desk.TraceMessage(Join("User trying to join game in progress at IP ", address));
        desk.link.SendData(client_message::JoinRunningGame());
        peers.position.Take(RoomEvent::JoinPressed);
        LaunchGame(Join(address, ";"));
    });
}

void Launcher::LaunchGame(std::string_view buffer) {
    desk.trap(__func__, [&] {
        const auto epoch = desk.link.Epoch();
        alarms.Cancel(patience);
        desk.view.PingTimer.SetOn(false);
        peers.banners.begin();
        const std::string launchIP(GetCommand(buffer, kFieldEnd));
        clipboard.SetText(launchIP);
        if (MayLaunchAt(launchIP, desk.trap.log)) {
            if (records.UsesDirectPlay(desk.session.m_CurrentLobby))
                peers.directPlay.LaunchDPGame(launchIP);
            else
                LaunchDirectIPGame(launchIP);
        }
        dialog.IsCreator = desk.session.m_IsRoomCreator;
        dialog.AutoStartOn = peers.autoStart.AutoStartOn();
        dialog.UsesDirectPlay = peers.autoStart.UsesDirectPlay();
        dialog.ShowModal();
        if (desk.link.Epoch() == epoch) ComeBack();
    });
}

/// The lists stay empty until the server has sent them again.
void Launcher::ComeBack() {
    View& view = desk.view;
    const Session& session = desk.session;
    peers.position.Take(session.m_IsRoomCreator          ? RoomEvent::BackAsCreator
                        : !session.m_CurrentRoom.empty() ? RoomEvent::BackAsMember
                                                         : RoomEvent::BackInLobby);
    view.PingTimer.SetOn(true);
    peers.banners.end();
    ClearLobbyViews(view);
    desk.link.SendData(client_message::BackFromGame(session.m_UserData, session.m_CurrentRoom));
}

void Launcher::LaunchDirectIPGame(std::string_view launchIP) {
    desk.trap(__func__, [&] {
        const Session& session = desk.session;
        const std::string path = records.GameFile(session.m_CurrentLobby);
        if (path.empty()) return;
        if (const std::string_view directory = DirectoryOf(path); !directory.empty()) processes.ChDir(directory);
        CommandLine command =
            m_DirectIPLaunch.GetCommandLineParameters(path, session.m_IsRoomCreator, launchIP, session.m_UserName);
        if (!session.m_IsRoomCreator) processes.Sleep(kMemberWait);
        if (command.text.empty()) command = {path, path.size()};
        desk.TraceMessage(Join("just about to launch DirectIP game: ", command.text));
        if (processes.Shell(command) == Processes::kNone) {
            desk.messages.DisplayMessage(text::kError14);
            desk.trap.log.LogError("Error: could not launch DirectIP game in module LaunchDirectIPGame()", false);
        } else {
            desk.TraceMessage(Join("game launched successfully via DirectIP.  Launch IP: ", launchIP));
        }
    });
}

} // namespace ombrin

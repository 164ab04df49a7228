#include "session/keep_alive.h"

#include "controls/grid_routines.h"
#include "foundation/text.h"
#include "lobby/lobby_list.h"
#include "session/wire/client_message.h"

namespace ombrin {

KeepAlive::KeepAlive(Desk desk) : desk(desk) {
    View& view = desk.view;
    view.HeartBeatTimer.Tick = [this] { HeartBeatTimer_Timer(); };
    view.Logoff.Click = [this] { Logoff_Click(); };
    view.EnterLobby.Click = [this] { Logoff_Click(); };
    view.lbLobbies.DblClick = [this] { Logoff_Click(); };
}

void KeepAlive::ReadHeartBeat() {
    Session& session = desk.session;
    session.HeartBeatCountdown = kUsualInterval;
    session.HeartBeatInterval = 0;
    const std::string setting = desk.settings.GetSetting("Settings", "HeartBeat");
    if (!setting.empty()) session.HeartBeatCountdown = session.HeartBeatInterval = ToInteger(setting);
}

void KeepAlive::HeartBeatTimer_Timer() {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        if (session.HeartBeatCountdown > 1) {
            --session.HeartBeatCountdown;
            return;
        }
        session.HeartBeatCountdown = session.HeartBeatInterval == 0 ? kUsualInterval : session.HeartBeatInterval;
        if (desk.link.IsConnected()) desk.link.SendData(client_message::HeartBeat());
    });
}

void KeepAlive::Logoff_Click() {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        View& view = desk.view;
        if (!session.m_CurrentRoom.empty()) return;
        const std::string lobby = LobbyNameOfRow(view.lbLobbies.SelectedText());
        if (lobby == session.m_CurrentLobby) {
            desk.TraceMessage(Join("trying to enter lobby ", lobby, " currently in this lobby, ignored."));
            return;
        }
        desk.TraceMessage(Join("trying to enter lobby ", lobby));
        view.PingTimer.SetOn(false);
        view.CleanUpTimer.SetOn(false);
        if (session.m_bBannersEnabled) view.BannerTimer.SetOn(false);
        ClearFlexGrid(view.msflexRoomLines);
        view.RoomUserList.Clear();
        view.RoomText.SetText("");
        view.RoomList.Clear();
        view.UserList.Clear();
        ClearFlexGrid(view.msflxMainChatLines);
        session.m_IsRoomCreator = false;
        session.m_CurrentRoom.clear();
        session.m_SelectedRoom.clear();
        view.SetEnabled(false);
        desk.link.SendData(client_message::LeaveLobby(session.m_UserData));
    });
}

} // namespace ombrin

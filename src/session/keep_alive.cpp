#include "session/keep_alive.h"

#include "controls/grid_routines.h"
#include "foundation/text.h"
#include "lobby/lobby_list.h"
#include "lobby/lobby_views.h"
#include "session/wire/client_message.h"

namespace ombrin {

KeepAlive::KeepAlive(Desk desk, Peers peers, LogonDialogs dialogs, RoomFrame frame)
    : desk(desk), peers(peers), dialogs(dialogs), frame(frame) {
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
        peers.banners.Stop();
        ClearLobbyViews(view);
        session.m_IsRoomCreator = false;
        session.m_CurrentRoom.clear();
        session.m_SelectedRoom.clear();
        frame.Show("");
        view.SetEnabled(false);
        desk.link.SendData(client_message::LeaveLobby(session.m_UserData));
    });
}

void KeepAlive::Winsock_Close() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Winsock closed");
        if (desk.link.IsConnected()) desk.link.SendData(client_message::Closing());
    });
}

bool KeepAlive::IsSocketConnected() {
    if (desk.link.IsConnected()) return true;
    desk.messages.DisplayMessage(text::kError15);
    desk.view.SetEnabled(false);
    return false;
}

void KeepAlive::CloseSocket() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("CloseSocket() called.");
        peers.connector.GiveUp();
        dialogs.connection.Hide(); // what it waited for comes no more
        if (dialogs.logon.Visible())
            ForgetSession(); // whoever asks there goes on to a new connection
        else
            UserLoggedOff();
    });
}

void KeepAlive::UserLoggedOff() {
    if (const auto failure = Trap::FailureOf([this] { StartAnew(); })) peers.connector.ReportFailure(*failure);
}

void KeepAlive::StartAnew() {
    constexpr std::string_view kTrace = "attempting to connect to the server in routine UserLoggedOff.  Local port: ";
    ForgetSession();
    peers.logon.DisplayLogonBanner();
    if (peers.logon.LogonDialogClosed()) return;
    peers.connector.Start(kTrace); // to the host of the last connection
    if (desk.session.m_StandAlone) peers.logon.RunCancelLoop(kTrace);
}

void KeepAlive::ForgetSession() {
    Session& session = desk.session;
    View& view = desk.view;
    view.lbLobbies.Clear();
    view.lbAllUsers.Clear();
    for (ListView* list : {&view.UserList, &view.RoomList, &view.RoomUserList, &view.BuddyLV}) list->Clear();
    for (FlexGrid* grid : {&view.msflxMainChatLines, &view.msflexRoomLines}) ClearFlexGrid(*grid);
    view.MainText.SetText("");
    peers.position.Take(RoomEvent::LoggedOff);
    dialogs.logon.Closed = dialogs.logon.ConnectPressed = false;
    dialogs.mainLobby.LobbySelected = false;
    session.m_IsRoomCreator = false;
    session.m_CurrentRoom.clear();
    session.m_SelectedRoom.clear();
    frame.Show("");
    session.m_ServerConnected = false;
    peers.banners.ForgetMarks();
    peers.ignored.StartAnew();
    session.HeartBeatCountdown = kUsualInterval;
}

} // namespace ombrin

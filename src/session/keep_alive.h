// Heartbeats, leaving a lobby for another, and the end of a connection.
#pragma once

#include "lobby/ignored_users.h"
#include "lobby/room_frame.h"
#include "lobby/room_position.h"
#include "session/logon.h"
#include "ui/banners.h"

namespace ombrin {

class KeepAlive {
public:
    /// Minutes between heartbeats where no setting names others.
    static constexpr std::int16_t kUsualInterval = 4;

    /// What a new logon begins with.
    struct Peers {
        IgnoredUsers& ignored;
        RoomPosition& position;
        Connector& connector;
        Logon& logon;
        Banners& banners;
    };

    KeepAlive(Desk desk, Peers peers, LogonDialogs dialogs, RoomFrame frame);

    /// Takes interval and countdown from the setting. Raises 13 or 6 when it is no number.
    void ReadHeartBeat();
    /// The change of lobby: everything of this one is cleared, and the server is asked for the list.
    void Logoff_Click();

    /// The server has closed the connection. The view stays as it was, and nobody is told.
    void Winsock_Close();
    /// Otherwise it tells the user and disables the view.
    bool IsSocketConnected();
    /// Ends the connection and logs on anew: the way back from a lost one, which only a host goes. Waits in dialogs.
    void CloseSocket();

private:
    void HeartBeatTimer_Timer();
    void UserLoggedOff();
    void StartAnew();
    /// Empties the views and clears the marks of the connection that is gone.
    void ForgetSession();

    Desk desk;
    Peers peers;
    LogonDialogs dialogs;
    RoomFrame frame;
};

} // namespace ombrin

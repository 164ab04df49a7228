// The session marks: the state of one user's presence on the server. Shared by all areas; ARCHITECTURE.md says which
// area writes which mark.
#pragma once

#include "foundation/settings.h"

#include <cstdint>
#include <string>

namespace ombrin {

struct Session {
    std::string m_UserData;     ///< `<user>;<lobby>;<address>`, the head of most client messages
    std::string m_UserName;     ///< the logged-on user, from the record when the connection is made
    std::string UserName = "0"; ///< the same for those who know no session, a stored property; a host may set it
    std::string m_CurrentLobby; ///< "temp" until the first lobby is chosen; names the game too
    std::string m_RemoteHost;   ///< the server
    std::string m_RemotePort;   ///< a number as text
    std::string m_LocalIP;      ///< own address; the server's report replaces it
    std::string m_CurrentRoom;  ///< the room that the user is in or asks for, empty for none
    std::string m_SelectedRoom; ///< the room that is previewed, empty for none
    std::string m_RoomHostAddress;
    std::string m_DefaultHost;  ///< preset host; when not empty the logon dialog hides its field
    std::string m_DefaultPort;  ///< likewise
    std::string ConfiguredGame; ///< the lobby that was entered, as the dialog for its game has it
    bool m_IsRoomCreator = false;
    bool m_StandAlone = false;
    bool m_CreatingAccount = false;
    bool m_ServerConnected = false; ///< the socket has reached the server in this logon run
    bool m_UserListSeen = false;    ///< a lobby's user list has come since the start
    bool m_bBannersEnabled = false;

    // Copies of settings, taken at start-up; a dialog that changes such a setting changes its copy, too
    bool TracingOn = false;              ///< trace each message by its code
    bool ChatSoundsOn = false;           ///< each displayed line sounds
    std::int16_t HeartBeatInterval = 0;  ///< minutes, 0 for the usual ones
    std::int16_t HeartBeatCountdown = 0; ///< minutes until the next heartbeat
};

/// As at the start and whenever a dialog that may have changed it is loaded.
inline void LoadTracingOn(Session& session, Settings& settings) {
    session.TracingOn = settings.GetSetting("Settings", "TracingOn") == "1";
}

} // namespace ombrin

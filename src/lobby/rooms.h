// The rooms of the lobby, their users, and the user's own way into a room and out of it.
#pragma once

#include "lobby/new_room.h"
#include "lobby/pinger.h"
#include "lobby/room_frame.h"
#include "lobby/room_password.h"
#include "lobby/room_position.h"
#include "lobby/row_limit.h"
#include "platform/desktop.h"

namespace ombrin {

struct RoomDialogs {
    NewRoom& newRoom;
    RoomPassword& password;
};

class Rooms {
public:
    Rooms(Desk desk, RoomDialogs dialogs, RoomPosition& position, RoomFrame frame, Pinger& pinger, Sound& sound);

    // What the server sends; a room record is `<name>;<status>;<address>;<users>;<max>;`, a room user record
    // `<name>;<address>;<public>;`.
    void AddGameLobbyRooms(std::string_view data); ///< room records
    void SetRoomStatus(std::string_view data);     ///< room records, of which name and status are used
    void RemoveGameLobbyRoom(std::string_view data);
    void AddRoomUserNames(std::string_view data); ///< room user records
    void RemoveRoomUser(std::string_view data);
    void RoomCreated();
    void RoomEntered(std::string_view data); ///< `<creator>;`
    void LeaveRoom();
    void DestroyRoom();
    void CreateRefused();
    void EnterRefused(const LanguageText& why);
    void PasswordRefused();
    void ProcessRoomPassword();
    void Rejected();
    void Banned();

    /// Somebody has come into a room or left it: its row.
    void UpdateRoomUserCount(std::string_view room, std::int16_t delta);
    /// The same for the list of its users while it is previewed.
    void UpdateSelectedRoomUsers(std::string_view user, std::string_view room, std::string_view address, bool joined);

private:
    void Create_Click();
    void Enter_Click();
    void Leave_Click();
    void Destroy_Click();
    void RoomList_ItemClick();
    void RoomList_MouseUp(int button);
    void RoomUserList_MouseUp(int button);
    void RejectUserMenu_Click();
    void CleanUpTimer_Timer();

    /// Whether others may see the user's address.
    std::string_view PublicIP() { return desk.settings.GetSetting("Settings", "PublicIP") == "Y" ? "Y" : "N"; }
    std::string SelectedRoomName() const;
    void ClearRoomViews();
    void Disappear(RoomEvent how);

    Desk desk;
    RoomDialogs dialogs;
    RoomPosition& position;
    RoomFrame frame;
    Pinger& pinger;
    Sound& sound;
    RowLimit roomLimit, userLimit;
};

} // namespace ombrin

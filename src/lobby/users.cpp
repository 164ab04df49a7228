#include "lobby/users.h"

#include "controls/user_input.h"
#include "foundation/text.h"
#include "session/wire/codec.h"

#include <array>

namespace ombrin {

namespace {

/// Pictures of UserImages by status. In a status change "5" marks somebody who is in a room, in a list it means
/// nothing.
struct StatusImage {
    std::string_view status;
    int inList, inChange;       ///< 0: no image there, no change here
    std::int16_t roomUsers = 0; ///< by a change, of the room that it names
};

constexpr std::array kStatusImages{
    StatusImage{"1", 1, 1, -1}, // in the lobby, in no room
    StatusImage{"2", 2, 2, 1},  // in a room
    StatusImage{"3", 3, 3, 0},  // in a game
    StatusImage{"5", 0, 2, 0},
};

StatusImage ImageOf(std::string_view status) {
    for (const StatusImage& row : kStatusImages)
        if (row.status == status) return row;
    return {};
}

} // namespace

Users::Users(Desk desk, IgnoredUsers& ignored, LobbyDirectory& lobbies, Rooms& rooms, Buddies& buddies,
             Connection& connection, Sound& sound)
    : desk(desk), ignored(ignored), lobbies(lobbies), rooms(rooms), buddies(buddies), connection(connection),
      sound(sound), limit(desk.trap.log, "users") {
    desk.view.UserList.MouseUp = [this](int button) { UserList_MouseUp(button); };
    desk.view.lbAllUsers.MouseUp = [this](int button) {
        if (button == UserInput::kRight) this->desk.view.PopUp(this->desk.view.AllUsersMenu);
    };
}

void Users::AddGameLobbyUsers(std::string_view data) {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        desk.TraceMessage("adding users to game lobby");
        desk.view.SetEnabled(true);
        bool own = false;
        for (auto name = GetCommand(data, kFieldEnd); !name.empty(); name = GetCommand(data, kFieldEnd)) {
            const StatusImage image = ImageOf(GetCommand(data, kFieldEnd));
            own = own || name == session.m_UserName;
            if (limit.IsFull(desk.view.UserList.rows)) continue;
            const RowId row = desk.view.UserList.Add(name);
            desk.view.UserList.rows.SetImage(row, image.inList);
            ignored.UserIgnored(name);
        }
        if (connection.Visible()) connection.Hide();
        if (!own && session.m_UserListSeen) sound.Play("EnterLobby.wav");
        session.m_UserListSeen = true;
        buddies.Buddies_Click();
    });
}

void Users::SetUserStatus(std::string_view data) {
    desk.trap(__func__, [&] {
        while (true) {
            const std::string_view status = GetCommand(data, kCodeEnd);
            const std::string_view user = GetCommand(data, kFieldEnd);
            if (user.empty()) return;
            const std::string_view room = GetCommand(data, kFieldEnd), address = GetCommand(data, kFieldEnd);
            RowList& list = desk.view.UserList.rows;
            const RowId row = list.Find(user);
            if (!row) continue; // the room's count stays, too
            const StatusImage known = ImageOf(status);
            if (known.inChange != 0) list.SetImage(row, known.inChange);
            if (known.roomUsers == 0) continue;
            rooms.UpdateSelectedRoomUsers(user, room, address, known.roomUsers > 0);
            rooms.UpdateRoomUserCount(room, known.roomUsers);
        }
    });
}

void Users::RemoveGameLobbyUser(std::string_view data) {
    desk.trap(__func__, [&] {
        const std::string_view name = GetCommand(data, kFieldEnd);
        if (name.empty()) return;
        if (const RowId row = desk.view.UserList.rows.Find(name)) desk.view.UserList.Remove(row);
    });
}

void Users::AddAllUsersToListBox(std::string_view data) {
    desk.trap(__func__, [&] {
        desk.TraceMessage("adding all users to all users list box");
        ListBox& list = desk.view.lbAllUsers;
        list.Clear();
        for (auto name = GetCommand(data, kFieldEnd); !name.empty() && !limit.IsFull(list.rows);
             name = GetCommand(data, kFieldEnd))
            list.Add(name);
    });
}

void Users::AddUserToAllUsersListBox(std::string_view data) {
    desk.trap(__func__, [&] {
        const std::string_view name = GetCommand(data, kFieldEnd);
        const std::string_view lobby = GetCommand(data, kFieldEnd);
        if (name.empty()) return;
        desk.TraceMessage(Join("adding user ", name, " to all users list box"));
        RowList& rows = desk.view.lbAllUsers.rows;
        if (!rows.Find(name) && !limit.IsFull(rows)) desk.view.lbAllUsers.Add(name);
        lobbies.UpdateLobbyUserCount(lobby, true);
    });
}

void Users::RemoveUserFromAllUsersListBox(std::string_view data) {
    desk.trap(__func__, [&] {
        const std::string_view name = GetCommand(data, kFieldEnd);
        const std::string_view lobby = GetCommand(data, kFieldEnd);
        const std::string_view gone = GetCommand(data, kFieldEnd);
        if (name.empty()) return;
        desk.TraceMessage(Join("removing user ", name, " from all users list box"));
        RowList& rows = desk.view.lbAllUsers.rows;
        if (const RowId row = rows.Find(name); row && gone == "1") rows.Remove(row);
        lobbies.UpdateLobbyUserCount(lobby, false);
    });
}

void Users::UserList_MouseUp(int button) {
    desk.TraceMessage("user list mouse up");
    if (button == UserInput::kRight) desk.view.PopUp(desk.view.UserMenu);
}

} // namespace ombrin

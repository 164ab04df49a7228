// Who is in the lobby and what each of them is doing, and everybody on the service.
#pragma once

#include "lobby/buddies.h"
#include "lobby/ignored_users.h"
#include "lobby/lobby_directory.h"
#include "lobby/rooms.h"
#include "platform/desktop.h"

namespace ombrin {

class Users {
public:
    Users(Desk desk, IgnoredUsers& ignored, LobbyDirectory& lobbies, Rooms& rooms, Buddies& buddies,
          Connection& connection, Sound& sound);

    /// `<user>;<status>;` any number of times: users of the lobby, all of them or one who comes.
    void AddGameLobbyUsers(std::string_view data);
    /// `<status>:<user>;<room>;<address>;` any number of times.
    void SetUserStatus(std::string_view data);
    /// `<user>;`: the first row of that name goes.
    void RemoveGameLobbyUser(std::string_view data);
    /// `<user>;` any number of times: everybody on the service.
    void AddAllUsersToListBox(std::string_view data);
    /// `<user>;<lobby>;`
    void AddUserToAllUsersListBox(std::string_view data);
    /// `<user>;<lobby>;<gone>;`
    void RemoveUserFromAllUsersListBox(std::string_view data);

private:
    void UserList_MouseUp(int button);

    Desk desk;
    IgnoredUsers& ignored;
    LobbyDirectory& lobbies;
    Rooms& rooms;
    Buddies& buddies;
    Connection& connection;
    Sound& sound;
    RowLimit limit;
};

} // namespace ombrin

#include "server/lists.h"

#include "server/lobbies.h"

#include <vector>

namespace ombrin::server {

using server_message::RoomRecord;
using server_message::RoomUser;
using server_message::UserStatus;

std::string_view StatusOf(const Session& session) {
    if (session.inGame) return "3";
    return session.room == nullptr ? "1" : "2"; // a room's creator, too
}

RoomUser RecordOf(const Member& member) {
    return {member.session->name, member.session->address, member.publicAddress};
}

RoomRecord RecordOf(const Room& room) {
    return {room.name, room.Status(), room.creator->address, room.members.size(), room.max};
}

void ShowLobby(const Lobby& lobby, Session& session) {
    std::vector<UserStatus> users;
    users.reserve(lobby.users.size());
    for (const Session* user : lobby.users) users.push_back({user->name, StatusOf(*user)});
    session.peer.Send(server_message::UsersOfLobby(users));

    std::vector<RoomRecord> rooms;
    rooms.reserve(lobby.rooms.Count());
    for (const Room& room : lobby.rooms.All()) rooms.push_back(RecordOf(room));
    session.peer.Send(server_message::RoomsOfLobby(rooms));
}

void ShowUsersOf(const Room& room, Session& session) {
    for (const std::string& name : session.shown.names) session.peer.Send(server_message::UserLeftRoom(name));
    std::vector<RoomUser> users;
    session.shown = {room.name, {}};
    for (const Member& member : room.members) {
        users.push_back(RecordOf(member));
        session.shown.names.push_back(member.session->name);
    }
    session.peer.Send(server_message::UsersOfRoom(users));
}

} // namespace ombrin::server

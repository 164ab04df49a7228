#include "server/room_moves.h"

#include "server/lobbies.h"
#include "server/names.h"

#include <algorithm>

namespace ombrin::server {

namespace {

using server_message::RoomUser;
using server_message::StatusChange;

// A user's status where it changes.
constexpr std::string_view kOutOfRoom = "1";
constexpr std::string_view kIntoRoom = "2";
constexpr std::string_view kOpenedRoom = "5"; ///< as the room's record counts him already

/// Names that a client's list may show, before those that have gone are taken off it.
constexpr std::size_t kMostShown = std::size_t{2} * kMostRoomUsers;

RoomUser RecordOf(const Member& member) {
    return {member.session->name, member.session->address, member.publicAddress};
}

StatusChange ChangeOf(std::string_view status, const Session& session, const Room& room) {
    return {status, session.name, room.name, session.address};
}

void TellStatus(const Lobby& lobby, const StatusChange& change, const Session* except = nullptr) {
    lobby.Send(server_message::StatusOfUsers({&change, 1}), except);
}

/// An 8 takes a name off the list at any time; the bound is on what the server remembers.
void TakeOffGone(Session& viewer, const Room& room) {
    std::erase_if(viewer.shown.names, [&](const std::string& name) {
        if (room.Has(name)) return false;
        viewer.peer.Send(server_message::UserLeftRoom(name));
        return true;
    });
}

/// Clients that look at a room add who enters it to their lists by themselves.
void RememberShown(const Lobby& lobby, const Room& room, const std::string& name) {
    for (Session* viewer : lobby.users) {
        if (viewer->shown.room != room.name) continue;
        std::vector<std::string>& names = viewer->shown.names;
        if (std::find(names.begin(), names.end(), name) != names.end()) continue;
        names.push_back(name);
        if (names.size() > kMostShown) TakeOffGone(*viewer, room);
    }
}

} // namespace

server_message::RoomRecord RecordOf(const Room& room) {
    return {room.name, room.Status(), room.creator->address, room.members.size(), room.max};
}

void OpenRoom(Session& creator, Room opened, bool publicAddress) {
    const Lobby& lobby = *creator.lobby;
    Room& room = creator.lobby->rooms.Add(std::move(opened));
    room.Add(creator, publicAddress);
    creator.peer.Send(server_message::RoomCreated(RecordOf(room.members.front())));
    creator.shown = {room.name, {creator.name}}; // the client has emptied its list
    const server_message::RoomRecord record = RecordOf(room);
    lobby.Send(server_message::RoomsOfLobby({&record, 1}));
    TellStatus(lobby, ChangeOf(kOpenedRoom, creator, room));
}

void JoinRoom(Session& session, Room& room, bool publicAddress) {
    room.Add(session, publicAddress);
    ShowUsersOf(room, session);
    session.peer.Send(server_message::RoomEntered(room.creator->name));
    const RoomUser arrived = RecordOf(room.members.back());
    room.Send(server_message::UsersOfRoom({&arrived, 1}), &session);
    TellStatus(*session.lobby, ChangeOf(kIntoRoom, session, room));
    RememberShown(*session.lobby, room, session.name);
}

void QuitRoom(Session& session, Hears hears) {
    if (session.room == nullptr) return;
    Room& room = *session.room;
    const Session* gone = hears == Hears::Yes ? nullptr : &session;
    if (gone == nullptr) session.peer.Send(server_message::Bare("9"));
    if (room.creator == &session) return EndRoom(*session.lobby, room, gone);
    room.Remove(session);
    room.Send(server_message::UserLeftRoom(session.name));
    TellStatus(*session.lobby, ChangeOf(kOutOfRoom, session, room), gone);
}

void EndRoom(Lobby& lobby, Room& room, const Session* gone) {
    room.Send(server_message::Bare("10"), gone);
    std::vector<StatusChange> changes;
    for (const Member& member : room.members) {
        changes.push_back(ChangeOf(kOutOfRoom, *member.session, room));
        member.session->room = nullptr;
    }
    lobby.Send(server_message::StatusOfUsers(changes), gone);
    lobby.Send(server_message::RoomGone(room.name), gone);
    lobby.rooms.Remove(room);
}

void RejectFromRoom(Session& session) {
    Room& room = *session.room;
    room.rejected.insert(Folded(session.name));
    room.Remove(session);
    TellStatus(*session.lobby, ChangeOf(kOutOfRoom, session, room));
    room.Send(server_message::UserLeftRoom(session.name));
    session.peer.Send(server_message::Bare("42"));
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

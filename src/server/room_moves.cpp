#include "server/room_moves.h"

#include "server/game_moves.h"
#include "server/lists.h"
#include "server/lobbies.h"
#include "server/names.h"

#include <algorithm>
#include <array>
#include <span>

namespace ombrin::server {

namespace {

using server_message::RoomUser;
using server_message::StatusChange;

/// Names that a client's list may show, before those that have gone are taken off it.
constexpr std::size_t kMostShown = std::size_t{2} * kMostRoomUsers;

StatusChange ChangeOf(std::string_view status, const Session& session, const Room& room) {
    return {status, session.name, room.name, session.address};
}

/// For who is out of the room but still in its game, the game is told last.
void TellOut(const Lobby& lobby, const Room& room, std::span<const Session* const> out, const Session* gone) {
    std::vector<StatusChange> changes;
    std::vector<StatusChange> stillInGame;
    for (const Session* user : out) {
        changes.push_back(ChangeOf(kOutOfRoom, *user, room));
        if (user->inGame) stillInGame.push_back({kInGame, user->name, "", user->address});
    }
    lobby.Update(server_message::StatusOfUsers(changes), gone);
    if (!stillInGame.empty()) lobby.Update(server_message::StatusOfUsers(stillInGame), gone);
}

void TellOut(const Lobby& lobby, const Room& room, const Session& user, const Session* gone = nullptr) {
    TellOut(lobby, room, std::array{&user}, gone);
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
        if (viewer->inGame || viewer->shown.room != room.name) continue;
        std::vector<std::string>& names = viewer->shown.names;
        if (std::find(names.begin(), names.end(), name) != names.end()) continue;
        names.push_back(name);
        if (names.size() > kMostShown) TakeOffGone(*viewer, room);
    }
}

} // namespace

void TellStatus(const Lobby& lobby, const StatusChange& change, const Session* except) {
    lobby.Update(server_message::StatusOfUsers({&change, 1}), except);
}

void OpenRoom(Session& creator, Room opened, bool publicAddress) {
    const Lobby& lobby = *creator.lobby;
    Room& room = creator.lobby->rooms.Add(std::move(opened));
    room.Add(creator, publicAddress);
    creator.peer.Send(server_message::RoomCreated(RecordOf(room.members.front())));
    creator.shown = {room.name, {creator.name}}; // the client has emptied its list
    const server_message::RoomRecord record = RecordOf(room);
    lobby.Update(server_message::RoomsOfLobby({&record, 1}));
    TellStatus(lobby, ChangeOf(kAlreadyInRoom, creator, room));
}

void JoinRoom(Session& session, Room& room, bool publicAddress) {
    room.Add(session, publicAddress);
    ShowUsersOf(room, session);
    session.peer.Send(server_message::RoomEntered(room.creator->name));
    const RoomUser arrived = RecordOf(room.members.back());
    room.Update(server_message::UsersOfRoom({&arrived, 1}), &session);
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
    room.Update(server_message::UserLeftRoom(session.name));
    TellOut(*session.lobby, room, session, gone);
    EndGameOfNobody(*session.lobby, room, gone);
}

void EndRoom(Lobby& lobby, Room& room, const Session* gone) {
    room.Send(server_message::Bare("10"), gone);
    std::vector<const Session*> out;
    for (const Member& member : room.members) {
        out.push_back(member.session);
        member.session->room = nullptr;
    }
    TellOut(lobby, room, out, gone);
    lobby.Update(server_message::RoomGone(room.name), gone);
    lobby.rooms.Remove(room);
}

void RejectFromRoom(Session& session) {
    Room& room = *session.room;
    room.rejected.insert(Folded(session.name));
    room.Remove(session);
    TellOut(*session.lobby, room, session);
    room.Update(server_message::UserLeftRoom(session.name));
    EndGameOfNobody(*session.lobby, room);
    session.peer.Send(server_message::Bare("42"));
}

} // namespace ombrin::server

#include "server/game_moves.h"

#include "server/lists.h"
#include "server/lobbies.h"
#include "server/room_moves.h"

#include <vector>

namespace ombrin::server {

namespace {

using server_message::StatusChange;

void TellRoom(const Lobby& lobby, const Room& room, const Session* except = nullptr) {
    const server_message::RoomRecord record = RecordOf(room);
    lobby.Update(server_message::StatusOfRooms({&record, 1}), except);
}

} // namespace

void StartGame(const Lobby& lobby, Room& room) {
    room.gameRuns = true;
    TellRoom(lobby, room);
    std::vector<StatusChange> changes;
    for (const Member& member : room.members)
        changes.push_back({kInGame, member.session->name, room.name, member.session->address});
    lobby.Update(server_message::StatusOfUsers(changes));
    const std::string launch = server_message::Launch(room.creator->address);
    for (const Member& member : room.members) {
        if (member.session->inGame) continue;
        member.session->inGame = true;
        member.session->peer.Send(launch);
    }
}

void JoinGame(Session& session) {
    session.inGame = true;
    TellStatus(*session.lobby, {kInGame, session.name, "", session.address});
}

void ReturnFromGame(Session& session) {
    session.inGame = false;
    if (session.lobby == nullptr) return;
    const Lobby& lobby = *session.lobby;
    ShowLobby(lobby, session);
    if (session.room == nullptr) return TellStatus(lobby, {kOutOfRoom, session.name, "", session.address});
    ShowUsersOf(*session.room, session);
    TellStatus(lobby, {kAlreadyInRoom, session.name, session.room->name, session.address});
    EndGameOfNobody(lobby, *session.room);
}

void EndGameOfNobody(const Lobby& lobby, Room& room, const Session* gone) {
    if (!room.gameRuns || room.AnybodyInGame()) return;
    room.gameRuns = false;
    TellRoom(lobby, room, gone);
}

} // namespace ombrin::server

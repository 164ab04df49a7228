#include "server/dispatch.h"
#include "server/game_moves.h"
#include "server/handlers.h"
#include "server/lobbies.h"

namespace ombrin::server {

void LaunchGame(Service& service, Session& session, const Request&) {
    if (session.room == nullptr) return service.Refuse(session, "You are in no room.");
    if (session.room->creator != &session) return service.Refuse(session, "Only its creator can launch a room's game.");
    service.Note(session, "launched the game of ", session.room->name);
    StartGame(*session.lobby, *session.room);
}

void JoinRunningGame(Service& service, Session& session, const Request& request) {
    if (request.fields[0] != "3") return service.Refuse(session, "The server cannot read this request.");
    if (session.lobby == nullptr) return service.Refuse(session, "You are in no lobby.");
    if (session.room != nullptr) return service.Refuse(session, "You are in a room already.");
    if (session.inGame) return service.Refuse(session, "You are in a game already.");
    service.Note(session, "joined a running game");
    JoinGame(session);
}

void BackFromGame(Service& service, Session& session, const Request&) {
    if (!session.inGame) return service.Refuse(session, "You are in no game.");
    service.Note(session, "is back from the game");
    ReturnFromGame(session);
}

} // namespace ombrin::server

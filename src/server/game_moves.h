// What happens when a game starts, goes on or ends, and who hears what of it, in its order. Each session is in a lobby
// but where it says otherwise.
#pragma once

#include "server/rooms.h"

namespace ombrin::server {

struct Lobby;

/// Everybody in the room is in the game from here on, and each who was not yet is told to start it.
void StartGame(const Lobby& lobby, Room& room);
/// Into a game that runs, from outside of its room.
void JoinGame(Session& session);
/// His lists are filled anew. He need not be in a lobby any more.
void ReturnFromGame(Session& session);
/// Where a room's game runs and nobody in the room is in it any more, the room is open again.
void EndGameOfNobody(const Lobby& lobby, Room& room, const Session* gone = nullptr);

} // namespace ombrin::server

// What happens when a user's room changes, and who hears what of it, in its order. Each session is in a lobby.
#pragma once

#include "server/rooms.h"
#include "session/wire/server_message.h"

namespace ombrin::server {

struct Lobby;

/// Whether a user who leaves can still be told.
enum class Hears { Yes, No };

server_message::RoomRecord RecordOf(const Room& room);

/// The room is new and without members.
void OpenRoom(Session& creator, Room room, bool publicAddress);
void JoinRoom(Session& session, Room& room, bool publicAddress);
/// Out of the room that he is in, if any; a creator's room ends.
void QuitRoom(Session& session, Hears hears);
/// The creator hears of it, unless he is `gone`.
void EndRoom(Lobby& lobby, Room& room, const Session* gone);
/// Out of his room and never in again. He is not its creator.
void RejectFromRoom(Session& session);

/// 3 with all users of the room, behind an 8 for each name that the client's list may still show.
void ShowUsersOf(const Room& room, Session& session);

} // namespace ombrin::server

// What the clients' lists hold, and the messages that fill one from the start.
#pragma once

#include "server/rooms.h"
#include "session/wire/server_message.h"

#include <string_view>

namespace ombrin::server {

struct Lobby;

/// In a list of users.
std::string_view StatusOf(const Session& session);
server_message::RoomUser RecordOf(const Member& member);
server_message::RoomRecord RecordOf(const Room& room);

/// 0 with all users of the lobby and 2 with all its rooms.
void ShowLobby(const Lobby& lobby, Session& session);
/// 3 with all users of the room, behind an 8 for each name that the client's list may still show.
void ShowUsersOf(const Room& room, Session& session);

} // namespace ombrin::server

// What happens when a user's room changes, and who hears what of it, in its order. Each session is in a lobby.
#pragma once

#include "server/rooms.h"
#include "session/wire/server_message.h"

namespace ombrin::server {

struct Lobby;

/// Whether a user who leaves can still be told.
enum class Hears { Yes, No };

// A user's status where it changes.
inline constexpr std::string_view kOutOfRoom = "1";
inline constexpr std::string_view kIntoRoom = "2";
inline constexpr std::string_view kInGame = "3";
inline constexpr std::string_view kAlreadyInRoom = "5"; ///< who has opened it or is back: its record counts him

/// To everybody in the lobby but one.
void TellStatus(const Lobby& lobby, const server_message::StatusChange& change, const Session* except = nullptr);

/// The room is new and without members.
void OpenRoom(Session& creator, Room room, bool publicAddress);
void JoinRoom(Session& session, Room& room, bool publicAddress);
/// Out of the room that he is in, if any; a creator's room ends.
void QuitRoom(Session& session, Hears hears);
/// The creator hears of it, unless he is `gone`.
void EndRoom(Lobby& lobby, Room& room, const Session* gone);
/// Out of his room and never in again. He is not its creator.
void RejectFromRoom(Session& session);

} // namespace ombrin::server

// The handlers of the client's codes, by area. Each gets a request of the right shape from a sender who may send it;
// the name in its first field is not looked at: the sender is who logged on over this connection.
#pragma once

namespace ombrin::server {

class Service;
struct Session;
struct Request;

// handlers_logon.cpp
void TellLobbyNames(Service& service, Session& session, const Request& request);
void LogOn(Service& service, Session& session, const Request& request);
void CreateAccount(Service& service, Session& session, const Request& request);

// handlers_lobby.cpp
void EnterLobby(Service& service, Session& session, const Request& request);
void EnterEmbedded(Service& service, Session& session, const Request& request);
void LeaveLobby(Service& service, Session& session, const Request& request);

// handlers_chat.cpp
void SayInLobby(Service& service, Session& session, const Request& request);
void SayInRoom(Service& service, Session& session, const Request& request);
void SayPrivately(Service& service, Session& session, const Request& request);

// handlers_room.cpp
void CreateRoom(Service& service, Session& session, const Request& request);
void EnterRoom(Service& service, Session& session, const Request& request);
void PreviewRoom(Service& service, Session& session, const Request& request);
void LeaveRoom(Service& service, Session& session, const Request& request);
void DestroyRoom(Service& service, Session& session, const Request& request);
void RejectUser(Service& service, Session& session, const Request& request);

// handlers_game.cpp
void LaunchGame(Service& service, Session& session, const Request& request);
void JoinRunningGame(Service& service, Session& session, const Request& request);
void BackFromGame(Service& service, Session& session, const Request& request);

// handlers_buddy.cpp
void TellBuddies(Service& service, Session& session, const Request& request);
void AddBuddy(Service& service, Session& session, const Request& request);
void RemoveBuddy(Service& service, Session& session, const Request& request);

// handlers_other.cpp
/// What no client sends to this port.
void NeverSent(Service& service, Session& session, const Request& request);

} // namespace ombrin::server

#include "server/handlers.h"

#include "foundation/text.h"
#include "server/dispatch.h"
#include "server/lists.h"
#include "server/names.h"
#include "server/room_moves.h"
#include "session/wire/codec.h"
#include "session/wire/server_message.h"

namespace ombrin::server {

namespace {

void SendGreeting(const Service& service, Session& session) {
    const std::string& greeting = service.configuration.greeting;
    if (!greeting.empty()) session.peer.Send(server_message::LobbyLine(kServerName, EncodeData(greeting)));
}

/// The client's dialog for lobbies and their passwords comes up with the list.
void AskAgain(Service& service, Session& session) {
    session.peer.Send(server_message::LobbyPasswordRefused(service.lobbies.Counts()));
}

void Arrive(Service& service, Session& session, Lobby& lobby) {
    lobby.Add(session);
    session.seenIn = &lobby;
    service.Note(session, "entered ", lobby.name);
    service.buddies.TellWhere(session.name, lobby.name);
    session.peer.Send(server_message::LobbySet(lobby.name));
    if (!session.inGame) ShowLobby(lobby, session);
    session.peer.Send(server_message::UsersOfService(service.users.Names()));
    SendGreeting(service, session);
    const server_message::UserStatus arrived{session.name, StatusOf(session)};
    lobby.Update(server_message::UsersOfLobby({&arrived, 1}), &session);
    service.SendToAll(server_message::UserCame(session.name, lobby.name));
}

} // namespace

void EnterLobby(Service& service, Session& session, const Request& request) {
    service.ReleaseHeldBack(session);
    if (session.lobby != nullptr) return service.Refuse(session, "You are in a lobby already.");
    Lobby* lobby = service.lobbies.Find(request.fields[1]);
    if (lobby == nullptr) {
        service.Refuse(session, "There is no lobby of that name.");
        return AskAgain(service, session);
    }
    const std::string_view password = request.count > 3 ? request.fields[3] : std::string_view();
    if (!lobby->password.empty() && password != lobby->password) {
        service.Note(session, "gave a wrong password for ", lobby->name);
        return AskAgain(service, session);
    }
    Arrive(service, session, *lobby);
}

void EnterEmbedded(Service& service, Session& session, const Request& request) {
    const std::string_view name = request.fields[0];
    if (!AcceptableName(name) || service.users.Find(name) != nullptr)
        return session.peer.Send(server_message::Bare("20"));
    if (service.RefusesWhenFull(session)) return session.peer.Send(server_message::Bare("23"));
    service.LogOn(session, name);
    EnterLobby(service, session, request);
    service.SendConfigured(session);
}

void LeaveLobby(Service& service, Session& session, const Request& request) {
    if (request.form == Form::Empty) return service.Dismiss(session, "has closed its connection");
    if (!session.LoggedOn()) return session.peer.Send(server_message::Bare("20"));
    if (session.lobby != nullptr) {
        Lobby& left = *session.lobby;
        QuitRoom(session, Hears::Yes);
        left.Remove(session);
        session.shown = {}; // the client has emptied its lists
        service.Note(session, "left ", left.name);
        left.Update(server_message::UserLeftLobby(session.name));
        service.SendToAll(server_message::UserWent(session.name, left.name, false));
    }
    session.peer.Send(server_message::LobbyList(service.lobbies.Counts()));
    if (!session.heldBack) return;
    session.heldBack->clear(); // the list that has just gone out counts them
    session.heldBackBytes = 0;
}

} // namespace ombrin::server

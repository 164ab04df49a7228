#include "server/handlers.h"

#include "server/dispatch.h"
#include "session/wire/server_message.h"

namespace ombrin::server {

void TellBuddies(Service&, Session& session, const Request&) { session.peer.Send(server_message::Buddies({})); }

// Nobody is in a room; the answer of code 9 or 10 ends the wait of a client that believes otherwise.

void LeaveRoom(Service&, Session& session, const Request&) { session.peer.Send(server_message::Bare("9")); }

void DestroyRoom(Service&, Session& session, const Request&) { session.peer.Send(server_message::Bare("10")); }

void NotYet(Service& service, Session& session, const Request& request) {
    RefuseRequest(service, session, request, "This server does not offer that yet.");
}

void NeverSent(Service& service, Session& session, const Request& request) {
    RefuseRequest(service, session, request, "The server does not take this request here.");
}

} // namespace ombrin::server

#include "server/handlers.h"

#include "foundation/text.h"
#include "server/dispatch.h"
#include "server/names.h"
#include "session/wire/codec.h"
#include "session/wire/server_message.h"

namespace ombrin::server {

namespace {

/// A client escapes ":" in what it says; an unescaped one would cut the line short, or forge another.
bool IsEncoded(std::string_view text) { return text.find(kCodeEnd) == std::string_view::npos; }

constexpr std::string_view kBadLine = "The server cannot read this line.";

} // namespace

void SayInLobby(Service& service, Session& session, const Request& request) {
    const std::string_view text = request.fields[3];
    if (!IsEncoded(text)) return service.Refuse(session, kBadLine);
    if (session.lobby == nullptr) return service.Refuse(session, "You are in no lobby.");
    session.lobby->Send(server_message::LobbyLine(session.name, text));
}

void SayInRoom(Service& service, Session& session, const Request& request) {
    const std::string_view text = request.fields[3];
    if (!IsEncoded(text)) return service.Refuse(session, kBadLine);
    // His room may have gone while the line was on its way.
    if (session.room == nullptr || session.lobby->rooms.Find(request.fields[4]) != session.room) return;
    session.room->Send(server_message::RoomLine(session.name, text));
}

void SayPrivately(Service& service, Session& session, const Request& request) {
    const std::string_view recipient = request.fields[3];
    const std::string_view text = request.fields[4];
    if (!IsEncoded(text)) return service.Refuse(session, kBadLine);
    Session* user = service.users.Find(recipient);
    if (user == &session) return service.Refuse(session, "You cannot send a private message to yourself.");
    if (user == nullptr)
        return service.Refuse(session, AcceptableName(recipient) ? Join(recipient, " is not on line.")
                                                                 : std::string("There is no user of that name."));
    const std::string message = server_message::PrivateMessage(session.name, text);
    user->peer.Send(message);
    session.peer.Send(message);
}

} // namespace ombrin::server

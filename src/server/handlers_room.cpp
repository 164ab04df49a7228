#include "server/handlers.h"

#include "server/dispatch.h"
#include "server/lists.h"
#include "server/names.h"
#include "server/room_moves.h"

#include <charconv>
#include <optional>

namespace ombrin::server {

namespace {

using Reason = std::string_view;

constexpr Reason kNoLobby = "You are in no lobby.";
constexpr Reason kInRoom = "You are in a room already.";
constexpr Reason kPlaying = "You are in a game.";

// Fields behind the record of three.
constexpr std::size_t kRoom = 3;
constexpr std::size_t kMax = 4;
constexpr std::size_t kLocked = 5;
constexpr std::size_t kNewPassword = 6;
constexpr std::size_t kCreatorPublic = 7;
constexpr std::size_t kPassword = 4;
constexpr std::size_t kPublic = 5;
constexpr std::size_t kUser = 4;

Room* FindRoom(const Session& session, std::string_view name) {
    return session.lobby == nullptr ? nullptr : session.lobby->rooms.Find(name);
}

std::optional<int> ParseMax(std::string_view text) {
    int max = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), max);
    if (problem != std::errc() || end != text.data() + text.size()) return std::nullopt;
    if (max < kLeastRoomUsers || max > kMostRoomUsers) return std::nullopt;
    return max;
}

/// For fields that know two values.
bool IsEither(std::string_view text, std::string_view one, std::string_view other) {
    return text == one || text == other;
}

/// Why a room cannot be opened with these values; empty when it can.
Reason WhyNoRoom(const Request& request) {
    const auto& fields = request.fields;
    if (!AcceptableRoomName(fields[kRoom])) return "A room cannot have this name.";
    if (!ParseMax(fields[kMax])) return "A room is for 2 to 32 users.";
    if (!IsEither(fields[kLocked], "0", "1") || !IsEither(fields[kCreatorPublic], "Y", "N"))
        return "The server cannot read this request.";
    // Without the lock, what the client's box for the password still holds does not count.
    if (fields[kLocked] == "1" && !AcceptableRoomPassword(fields[kNewPassword]))
        return "A room cannot have this password.";
    return {};
}

/// Answers why he may not enter the room, by a code of its own; true when he may.
bool MayEnter(Service& service, Session& session, const Room& room, std::string_view password) {
    const auto refuse = [&](std::string_view code) {
        session.peer.Send(server_message::Bare(code));
        return false;
    };
    if (room.Rejected(session.name)) return refuse("43");
    if (room.Full() || room.gameRuns) return refuse("18");
    if (room.password.empty() || password == room.password) return true;
    if (password.empty()) return refuse("34");
    service.Note(session, "gave a wrong password for the room ", room.name);
    return refuse("33");
}

} // namespace

void CreateRoom(Service& service, Session& session, const Request& request) {
    const auto refuse = [&](Reason reason) { RefuseRequest(service, session, request, reason); };
    if (session.lobby == nullptr) return refuse(kNoLobby);
    if (session.room != nullptr) return refuse(kInRoom);
    if (session.inGame) return refuse(kPlaying);
    if (const Reason reason = WhyNoRoom(request); !reason.empty()) return refuse(reason);
    const auto& fields = request.fields;
    if (FindRoom(session, fields[kRoom]) != nullptr) return session.peer.Send(server_message::Bare("17"));
    if (session.lobby->rooms.Count() >= service.configuration.limits.roomsPerLobby)
        return refuse("There are too many rooms in this lobby.");
    const bool locked = fields[kLocked] == "1";
    service.Note(session, "opened the room ", fields[kRoom]);
    OpenRoom(session,
             {.name = std::string(fields[kRoom]),
              .creator = &session,
              .max = *ParseMax(fields[kMax]),
              .locked = locked,
              .password = std::string(locked ? fields[kNewPassword] : "")},
             fields[kCreatorPublic] == "Y");
}

void EnterRoom(Service& service, Session& session, const Request& request) {
    const auto& fields = request.fields;
    const bool toldPublic = request.count > kPublic;
    if (session.lobby == nullptr) return RefuseRequest(service, session, request, kNoLobby);
    if (session.room != nullptr) return RefuseRequest(service, session, request, kInRoom);
    if (session.inGame) return RefuseRequest(service, session, request, kPlaying);
    if (toldPublic && !IsEither(fields[kPublic], "Y", "N"))
        return RefuseRequest(service, session, request, "The server cannot read this request.");
    Room* room = FindRoom(session, fields[kRoom]);
    if (room == nullptr) return session.peer.Send(server_message::Bare("19"));
    // The answer to a room's question for its password does not tell it again.
    if (toldPublic || session.asked.room != room->name)
        session.asked = {room->name, toldPublic && fields[kPublic] == "Y"};
    if (MayEnter(service, session, *room, fields[kPassword])) JoinRoom(session, *room, session.asked.publicAddress);
}

void PreviewRoom(Service& service, Session& session, const Request& request) {
    if (session.room != nullptr) return service.Refuse(session, kInRoom);
    if (session.inGame) return service.Refuse(session, kPlaying);
    if (const Room* room = FindRoom(session, request.fields[kRoom])) ShowUsersOf(*room, session);
}

void LeaveRoom(Service&, Session& session, const Request&) {
    if (session.room == nullptr) return session.peer.Send(server_message::Bare("9"));
    QuitRoom(session, Hears::Yes);
}

void DestroyRoom(Service& service, Session& session, const Request&) {
    if (session.room == nullptr) return session.peer.Send(server_message::Bare("10"));
    if (session.room->creator != &session) return service.Refuse(session, "Only its creator can destroy a room.");
    EndRoom(*session.lobby, *session.room, nullptr);
}

void RejectUser(Service& service, Session& session, const Request& request) {
    const Room* room = FindRoom(session, request.fields[kRoom]);
    if (room == nullptr) return;
    if (room->creator != &session) return service.Refuse(session, "Only its creator can reject users from a room.");
    Session* user = service.users.Find(request.fields[kUser]);
    if (user == &session) return service.Refuse(session, "You cannot reject yourself.");
    if (user == nullptr || user->room != room) return;
    service.Note(session, "rejected ", user->name, " from ", room->name);
    RejectFromRoom(*user);
}

} // namespace ombrin::server

#include "server/dispatch.h"

#include "server/handlers.h"
#include "session/wire/codes.h"
#include "session/wire/server_message.h"

#include <algorithm>
#include <array>

namespace ombrin::server {

namespace {

constexpr std::size_t kRecord = 3; ///< fields of `<user>;<lobby>;<address>`, the head of most messages

constexpr Shape kBareName{0, 0, Form::Text};
constexpr Shape kNothing{0, 0, Form::Empty};

/// Entering a lobby is told to everybody on the service, and each client of a room pings who comes in.
constexpr double kCostOfEntering = 80;
/// Entering a room or a game to everybody in the lobby, and so is leaving a room, which costs nothing more.
constexpr double kCostOfRoom = 40;
/// A change of the database.
constexpr double kCostOfStoring = 4;

using enum Standing;

constexpr std::array kClientCodes{
    ClientCode{"0", NotLoggedOn, kNothing, TellLobbyNames},
    ClientCode{"2", LoggedOn, {kRecord, kRecord + 1}, EnterLobby, {}, kCostOfEntering},
    ClientCode{"3", LoggedOn, {kRecord + 1, kRecord + 1}, SayInLobby, Line::Lobby},
    ClientCode{"4", LoggedOn, {kRecord + 5, kRecord + 5}, CreateRoom, {}, kCostOfRoom, "17"},
    ClientCode{"5", LoggedOn, {kRecord + 2, kRecord + 2}, SayInRoom, Line::Room},
    ClientCode{"7", LoggedOn, {kRecord + 2, kRecord + 3}, EnterRoom, {}, kCostOfRoom, "18"},
    ClientCode{"8", LoggedOn, {kRecord + 1, kRecord + 1}, LeaveRoom},
    ClientCode{"9", LoggedOn, {kRecord + 1, kRecord + 1}, DestroyRoom},
    ClientCode{"10", LoggedOn, {kRecord + 1, kRecord + 1}, LaunchGame, {}, kCostOfRoom},
    ClientCode{"11", LoggedOn, {kRecord + 1, kRecord + 1}, PreviewRoom},
    ClientCode{"12", Anyone, {kRecord, kRecord, Form::Fields, true}, LeaveLobby},
    ClientCode{"14", LoggedOn, {kRecord + 1, kRecord + 1}, BackFromGame, {}, kCostOfRoom},
    ClientCode{"15", NotLoggedOn, {kRecord + 1, kRecord + 1}, LogOn},
    ClientCode{"17", NotLoggedOn, {3, 3}, CreateAccount},
    ClientCode{"18", LoggedOn, {kRecord + 2, kRecord + 2}, SayPrivately, Line::Private},
    ClientCode{"19", LoggedOn, kBareName, TellBuddies},
    ClientCode{"20", LoggedOn, kBareName, NeverSent},
    ClientCode{"21", LoggedOn, {2, 2}, AddBuddy, {}, kCostOfStoring},
    ClientCode{"22", LoggedOn, {2, 2}, RemoveBuddy, {}, kCostOfStoring},
    ClientCode{"23", LoggedOn, {kRecord + 2, kRecord + 2}, RejectUser},
    ClientCode{"24", LoggedOn, kBareName, NeverSent},
    ClientCode{"25", LoggedOn, kNothing, NeverSent},
    ClientCode{"27", LoggedOn, kNothing, NeverSent},
    ClientCode{"28", Anyone, {0, 0}, [](Service&, Session&, const Request&) {}},
    ClientCode{"29", LoggedOn, {1, 1}, JoinRunningGame, {}, kCostOfRoom},
};

static_assert(std::equal(kClientCodes.begin(), kClientCodes.end(), kClientCodeNames.begin(), kClientCodeNames.end(),
                         [](const ClientCode& row, const CodeName& name) { return row.code == name.code; }),
              "each code of the client has its row here, in the same order");

const ClientCode* FindCode(std::string_view code) {
    const auto* found =
        std::find_if(kClientCodes.begin(), kClientCodes.end(), [&](const ClientCode& row) { return row.code == code; });
    return found == kClientCodes.end() ? nullptr : found;
}

/// Where the page around the client vouches for its user, a first message that enters a lobby is the logon, too.
bool MayEnterEmbedded(const Service& service, const Session& session, const ClientCode& row) {
    return service.access.trustEmbedded && !session.spoken && row.handle == EnterLobby;
}

/// A line over the limit goes to nobody, and its sender hears of the first.
bool PassesLimit(Service& service, Session& session, Line kind) {
    LineLimit& limit = session.lines.at(static_cast<std::size_t>(kind));
    if (limit.bucket.Take(service.Now())) {
        limit.told = false;
        return true;
    }
    if (!limit.told) service.Refuse(session, "You are writing too fast. Your lines are not sent for a moment.");
    limit.told = true;
    return false;
}

} // namespace

bool Shape::Fits(const Request& request) const {
    if (request.form == Form::Empty) return orEmpty || form == Form::Empty;
    return request.form == form && request.count >= leastFields && request.count <= mostFields;
}

double Dispatch(Service& service, Session& session, std::string_view message) {
    const auto request = ParseRequest(message);
    const ClientCode* row = request ? FindCode(request->code) : nullptr;
    const bool fits = row != nullptr && row->shape.Fits(*request);

    if (!session.LoggedOn() && (!fits || row->standing == LoggedOn)) {
        if (fits && MayEnterEmbedded(service, session, *row))
            EnterEmbedded(service, session, *request);
        else
            session.peer.Send(server_message::Bare("20"));
        return row == nullptr ? 1 : row->cost;
    }
    if (row == nullptr) {
        service.Refuse(session, "The server does not know this request.");
        return 1;
    }
    if (!fits)
        RefuseRequest(service, session, *request, "The server cannot read this request.");
    else if (session.LoggedOn() && row->standing == NotLoggedOn)
        RefuseRequest(service, session, *request, "You are logged on already.");
    else if (!row->limit || PassesLimit(service, session, *row->limit))
        row->handle(service, session, *request);
    return row->cost;
}

void RefuseRequest(Service& service, Session& session, const Request& request, std::string_view text) {
    service.Refuse(session, text);
    const ClientCode* row = FindCode(request.code);
    if (row != nullptr && !row->refusal.empty()) session.peer.Send(server_message::Bare(row->refusal));
}

} // namespace ombrin::server

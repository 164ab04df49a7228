#include "server/service.h"

#include "server/dispatch.h"
#include "server/room_moves.h"
#include "session/wire/server_message.h"

#include <algorithm>

namespace ombrin::server {

Service::Service(const Configuration& configuration, Access access, Outside outside)
    : configuration(configuration), access(access), outside(outside), lobbies(this->configuration.lobbies),
      arrivals(configuration.limits.connectionsPerAddress) {}

void Service::Require(std::span<const OfferedFile> files, std::uint16_t port) {
    updatePort = std::to_string(port);
    required.clear();
    for (const OfferedFile& file : files) required.push_back({file.name, file.Size(), file.directory, file.version});
}

Session& Service::Connected(Peer& peer, Whereabouts where) {
    const SessionId id = ++lastId;
    const TimePoint now = Now();
    const Limits& limits = configuration.limits;
    auto session = std::make_unique<Session>(Session{
        .id = id,
        .peer = peer,
        .address = std::move(where.address),
        .origin = std::move(where.origin),
        .reached = std::move(where.reached),
        .name = {},
        .lastHeard = now,
        .heldBack = std::nullopt,
        .lines = {LineLimit{Bucket(limits.lobbyLines, now)}, LineLimit{Bucket(limits.roomLines, now)},
                  LineLimit{Bucket(limits.privateMessages, now)}},
        .pace = Bucket(kPace, now),
    });
    Session& connected = *session;
    sessions.emplace(id, std::move(session));
    Note(connected, "connected");
    const Milliseconds wait = arrivals.Wait(connected.origin, now);
    if (wait > Milliseconds(0)) HoldFor(connected, wait, [](Session&) {});
    return connected;
}

void Service::Receive(Session& session, std::string_view message) {
    if (session.closing) return;
    session.lastHeard = Now();
    const double cost = Dispatch(*this, session, message);
    session.spoken = true;
    const Milliseconds wait = session.pace.Spend(cost, Now());
    if (wait > Milliseconds(0)) HoldFor(session, wait, [](Session&) {});
}

void Service::ReceivedTooLong(Session& session) {
    session.lastHeard = Now();
    session.spoken = true;
    Note(session, "sent a message that is too long");
    Refuse(session, "The message was too long and was thrown away.");
}

void Service::Ended(Session& session) {
    if (session.LoggedOn()) LogOff(session);
    sessions.erase(session.id);
}

void Service::CloseSilent() {
    const TimePoint now = Now();
    for (const auto& [id, session] : sessions)
        if (!session->closing && now - session->lastHeard >= kSilence) Dismiss(*session, "was silent for too long");
    arrivals.Forget(now);
}

void Service::Refuse(Session& session, std::string_view text) {
    session.peer.Send(server_message::GeneralMessage(text));
}

void Service::HoldFor(Session& session, Milliseconds delay, std::function<void(Session&)> then) {
    Hold(session);
    outside.alarms.After(delay, [this, id = session.id, then = std::move(then)] {
        Session* held = Find(id);
        if (held == nullptr) return;
        then(*held);
        Release(*held);
    });
}

void Service::Release(Session& session) {
    if (--session.holds == 0) session.peer.Continue();
}

Session* Service::Find(SessionId id) {
    const auto found = sessions.find(id);
    return found == sessions.end() ? nullptr : found->second.get();
}

bool Service::RefusesWhenFull(const Session& whoComes) {
    if (users.Count() < configuration.limits.users) return false;
    Note(whoComes, "was refused: the server is full");
    return true;
}

void Service::LogOn(Session& session, std::string_view name) {
    session.name = name;
    users.Add(session);
    Note(session, "logged on from ", session.address);
    session.peer.Send(server_message::AddressSeen(session.address));
    LoadBuddies(session);
}

void Service::LoadBuddies(Session& session) {
    try {
        buddies.Load(session, outside.accounts.Buddies(session.name));
    } catch (const StoreError& problem) {
        Note(session, std::string_view(problem.what()));
        Refuse(session, "Your list of buddies cannot be read at the moment.");
    }
}

void Service::LogOff(Session& session) {
    Lobby* left = session.lobby;
    users.Remove(session);
    session.inGame = false; // so that no status follows behind his going
    QuitRoom(session, Hears::No);
    if (left != nullptr) {
        left->Remove(session);
        left->Update(server_message::UserLeftLobby(session.name));
    }
    SendToAll(server_message::UserWent(session.name, left == nullptr ? "" : left->name, true));
    buddies.Forget(session);
    buddies.TellWhere(session.name, "");
    session.seenIn = nullptr;
    Note(session, "logged off");
    session.name.clear();
    session.heldBack.reset();
}

void Service::Dismiss(Session& session, std::string_view why) {
    Note(session, why);
    if (session.LoggedOn()) LogOff(session);
    session.closing = true;
    session.peer.Close();
}

void Service::SendToAll(const std::string& message) {
    for (Session* user : users.All()) {
        if (!user->heldBack) {
            user->peer.Send(message);
            continue;
        }
        user->heldBackBytes += message.size();
        user->heldBack->push_back(message);
        if (user->heldBackBytes <= kMostHeldBack) continue;
        user->heldBack.reset();
        // Not here: dismissing tells everybody, too.
        HoldFor(*user, Milliseconds(0), [this](Session& late) { Dismiss(late, "entered no lobby for too long"); });
    }
}

void Service::ReleaseHeldBack(Session& session) {
    if (!session.heldBack) return;
    for (const std::string& message : *session.heldBack) session.peer.Send(message);
    session.heldBack.reset();
}

void Service::SendConfigured(Session& session) {
    if (!configuration.banners.empty()) {
        std::vector<server_message::Banner> banners;
        for (const BannerSetup& banner : configuration.banners) banners.push_back({banner.seconds, banner.address});
        session.peer.Send(server_message::Banners(banners));
    }
    if (!configuration.changeOfLobby) session.peer.Send(server_message::Bare("38"));
    if (!configuration.directPlayGames.empty()) {
        std::vector<server_message::DirectPlayGame> games;
        for (const DirectPlaySetup& entry : configuration.directPlayGames)
            games.push_back({entry.game, entry.application});
        session.peer.Send(server_message::DirectPlayGames(games));
    }
    for (const DirectIPSetup& entry : configuration.directIPGames)
        session.peer.Send(server_message::DirectIPGame(entry.game, entry.executable));
    if (!required.empty()) session.peer.Send(server_message::RequiredFiles(session.reached, updatePort, required));
}

} // namespace ombrin::server

// The service: its state, and what the handlers of the client's codes have in common. It knows no sockets and no
// real time; connections call it from the loop, one message at a time.
#pragma once

#include "server/account_store.h"
#include "server/alarms.h"
#include "server/arrivals.h"
#include "server/buddies.h"
#include "server/configuration.h"
#include "server/lobbies.h"
#include "server/log.h"
#include "server/logon_throttle.h"
#include "server/passwords.h"
#include "server/release.h"
#include "server/session.h"
#include "server/users.h"
#include "session/wire/server_message.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace ombrin::server {

struct Access {
    bool openAccounts = false;  ///< an unknown name that logs on gets an account at once
    bool trustEmbedded = false; ///< a connection may begin by entering a lobby
};

class Service {
public:
    struct Outside {
        Alarms& alarms;
        Passwords& passwords;
        AccountStore& accounts;
        Log& log;
    };

    /// A connection that nothing came from for so long is closed.
    static constexpr Milliseconds kSilence{15 * 60'000};
    /// A name whose connection has been silent for so long can be taken over by who knows the password: a client that
    /// lives sends a heartbeat every four minutes.
    static constexpr Milliseconds kTakeOver{5 * 60'000};
    /// In bytes: what a client is kept informed of before it enters its first lobby.
    static constexpr std::size_t kMostHeldBack = 4U << 20U;
    /// How fast the messages of one connection are read, in units of one plain message; beyond it the connection
    /// waits, so that nothing is refused and nobody else is slowed.
    static constexpr Rate kPace{400, 200};

    Service(const Configuration& configuration, Access access, Outside outside);

    /// Clients that log on from now on hear that they must have these files, and get them at this port. The files have
    /// to last as long as the service.
    void Require(std::span<const OfferedFile> files, std::uint16_t port);

    // For the connections
    Session& Connected(Peer& peer, Whereabouts where);
    /// A whole message, without its "~". Not to be called while the session is held.
    void Receive(Session& session, std::string_view message);
    /// A message was thrown away for its length.
    void ReceivedTooLong(Session& session);
    /// The connection has gone. The session is no more.
    void Ended(Session& session);
    /// Closes the connections that have been silent for too long. To be called now and then, as it also forgets the
    /// addresses that nobody came from for a while.
    void CloseSilent();

    // For the handlers
    TimePoint Now() const { return outside.alarms.Now(); }
    template <class... Parts>
    void Note(const Session& session, const Parts&... parts) {
        outside.log.Line("#", std::to_string(session.id), " ", session.name.empty() ? session.address : session.name,
                         " ", parts...);
    }
    void Refuse(Session& session, std::string_view text);
    /// Runs the callback with the session while it is there; until then no message of it is read.
    void HoldFor(Session& session, Milliseconds delay, std::function<void(Session&)> then);
    /// For an answer that comes from elsewhere; each hold needs its release.
    void Hold(Session& session) { ++session.holds; }
    void Release(Session& session);
    Session* Find(SessionId id);

    /// True if nobody more may log on, which the log then says; the caller answers.
    bool RefusesWhenFull(const Session& whoComes);
    void LogOn(Session& session, std::string_view name);
    /// Tells the others and forgets the name; the connection stays.
    void LogOff(Session& session);
    /// Logs off and closes.
    void Dismiss(Session& session, std::string_view why);
    /// To everybody on the service, to some of them later.
    void SendToAll(const std::string& message);
    void ReleaseHeldBack(Session& session);
    /// What the configuration names for each client behind its logon.
    void SendConfigured(Session& session);

    const Configuration configuration;
    const Access access;
    const Outside outside;
    Lobbies lobbies;
    Users users;
    Buddies buddies;
    LogonThrottle throttle;

private:
    void LoadBuddies(Session& session);

    std::unordered_map<SessionId, std::unique_ptr<Session>> sessions;
    SessionId lastId = 0;
    Arrivals arrivals;
    std::vector<server_message::RequiredFile> required; ///< views of the release
    std::string updatePort;
};

} // namespace ombrin::server

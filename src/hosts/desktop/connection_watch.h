// What a person is told of a connection in trouble, and the way back that he would go himself. Knows no toolkit.
#pragma once

#include "foundation/clock.h"

#include <optional>
#include <string>
#include <string_view>

namespace ombrin::desktop {

/// What is in front of the user.
enum class Front {
    View,       ///< the main view takes his input, but for being disabled
    Logon,      ///< the logon dialog
    Connecting, ///< the box that stands while the client waits for the server
    Other,      ///< any other dialog or box that keeps input from the view
};

/// The client at one moment.
struct ConnectionState {
    bool made = false;      ///< a connection was made in this logon run
    bool connected = false; ///< and is there
    bool failed = false;    ///< the connection that was asked for does not come
    bool listed = false;    ///< the lobbies have come
    bool entered = false;   ///< the users of a lobby have come
    bool enabled = false;   ///< the view is
    Front front = Front::View;
    std::string lobby; ///< the current one
};

enum class Trouble {
    None,
    Lost,   ///< the connection that had been made is gone
    Silent, ///< it is there, but what the view waits for does not come
};

/// What the user would do next on his way back.
enum class WayStep {
    None,
    PressConnect, ///< in the logon dialog, with the values that are in it
    EnterLobby,   ///< a double click on the row of Lobby(), where there is one
};

class ConnectionWatch {
public:
    /// A server that has not answered for so long is taken for one that does not answer.
    static constexpr Milliseconds kPatience{15'000};

    /// What to tell now: nothing of what was dismissed, until it has been over.
    Trouble Look(const ConnectionState& state, TimePoint now);
    /// When a look is due though nothing has changed; nothing for never.
    std::optional<TimePoint> Due() const;
    void Dismiss() { dismissed = true; }

    /// The user wants to log on again, and to go back to where he is. The caller ends the connection.
    void GoBack(const ConnectionState& state);
    /// The next step, once: the caller goes it at once. The way ends with the last one, and at the first thing that is
    /// not as expected.
    WayStep Next(const ConnectionState& state);
    /// He goes on himself.
    void Stop() { way = Way::None; }
    bool IsOnTheWay() const { return way != Way::None; }
    const std::string& Lobby() const { return lobby; }

private:
    enum class Way { None, ToLogon, ToLobby };

    Trouble Find(const ConnectionState& state, TimePoint now);

    std::optional<TimePoint> waitingSince;
    Trouble found = Trouble::None;
    bool dismissed = false;
    Way way = Way::None;
    std::string lobby; ///< of the time before
};

} // namespace ombrin::desktop

#include "hosts/desktop/connection_watch.h"

namespace ombrin::desktop {

namespace {

/// The client's word for the lobby of a user who has not come into one yet.
constexpr std::string_view kNoLobbyYet = "temp";

} // namespace

Trouble ConnectionWatch::Find(const ConnectionState& state, TimePoint now) {
    const bool waits = state.made && state.connected && state.front == Front::View && !(state.enabled && state.listed);
    if (!waits)
        waitingSince.reset();
    else if (!waitingSince)
        waitingSince = now;
    // The logon dialog is the way to a new connection itself.
    if (state.made && !state.connected && state.front != Front::Logon) return Trouble::Lost;
    return waits && now - *waitingSince >= kPatience ? Trouble::Silent : Trouble::None;
}

Trouble ConnectionWatch::Look(const ConnectionState& state, TimePoint now) {
    const Trouble trouble = Find(state, now);
    if (trouble != found) dismissed = false;
    found = trouble;
    return dismissed ? Trouble::None : trouble;
}

std::optional<TimePoint> ConnectionWatch::Due() const {
    if (!waitingSince || found == Trouble::Silent) return std::nullopt;
    return *waitingSince + kPatience;
}

void ConnectionWatch::GoBack(const ConnectionState& state) {
    lobby = state.lobby == kNoLobbyYet ? std::string() : state.lobby;
    way = Way::ToLogon;
}

WayStep ConnectionWatch::Next(const ConnectionState& state) {
    switch (way) {
    case Way::None:
        break;
    case Way::ToLogon:
        if (state.front == Front::Logon) {
            way = Way::ToLobby;
            return WayStep::PressConnect;
        }
        if (state.front != Front::View) Stop();
        break;
    case Way::ToLobby:
        // A refusal, a question or a connection that does not come is for the user.
        if (state.failed || state.front == Front::Logon || state.front == Front::Other ||
            (state.made && !state.connected))
            Stop();
        else if (state.front == Front::View && state.connected && state.enabled && state.listed && state.entered) {
            Stop();
            if (!lobby.empty() && lobby != state.lobby) return WayStep::EnterLobby;
        }
        break;
    }
    return WayStep::None;
}

} // namespace ombrin::desktop

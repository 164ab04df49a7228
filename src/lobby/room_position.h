// The user's own position in a lobby: in no room, on the way into one, in one, on the way out; and which control is
// usable then. The tables describe and set. No routine asks the position before it acts: the server decides.
#pragma once

#include "controls/main_view.h"
#include "foundation/log.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace ombrin {

enum class Position : std::uint8_t {
    Lobby,          ///< in no room; a preview may show
    Naming,         ///< NewRoom is open
    Creating,       ///< asked for a room of his own
    Entering,       ///< asked to enter one
    AskingPassword, ///< RoomPassword is open
    Creator,        ///< in the room that he created
    Member,         ///< in the room of another
    Launching,      ///< asked the server to start the game
    Leaving,        ///< asked to be let out
    Destroying,     ///< asked for the end of his room
};

/// What moves the position or sets the controls.
enum class RoomEvent : std::uint8_t {
    CreatePressed,
    NamingCancelled,
    NamingConfirmed,
    RoomCreated,
    CreateRefused,
    EnterPressed,
    RoomEntered,
    PasswordAsked,
    PasswordGiven,
    PasswordCancelled,
    EnterRefused,
    LeavePressed,
    LeaveRoom,
    DestroyPressed,
    DestroyRoom,
    LaunchPressed,
    JoinPressed,
    BackAsCreator,
    BackAsMember,
    BackInLobby,
    FirstRoomListed,
    LastRoomGone,
    PreviewShown,
    LoggedOff,
};

/// What an event does to one control, or to the view as a whole.
enum class Switch : std::uint8_t {
    K,  ///< stays as it is
    E,  ///< enabled
    D,  ///< disabled
    EV, ///< enabled and visible
    DH, ///< disabled and hidden
};

struct RoomControls {
    RoomEvent event;
    Switch view, Create, Enter, Leave, Destroy, Launch, SendRoom, RoomText, Logoff;
};

namespace room_tables {

using enum Switch;
using enum RoomEvent;

// clang-format off
/// The controls by event.
inline constexpr std::array kControls{
    //                              view Create Enter Leave Destroy Launch SendRoom RoomText Logoff
    RoomControls{CreatePressed,     D,   D,     K,    K,    K,      K,     K,       K,       K},
    RoomControls{NamingCancelled,   E,   E,     K,    K,    K,      K,     K,       K,       K},
    RoomControls{NamingConfirmed,   K,   K,     K,    K,    K,      K,     K,       K,       K},
    RoomControls{RoomCreated,       E,   D,     D,    K,    EV,     EV,    E,       E,       D},
    RoomControls{CreateRefused,     E,   E,     K,    K,    K,      K,     K,       K,       K},
    RoomControls{EnterPressed,      D,   K,     D,    K,    K,      K,     K,       K,       K},
    RoomControls{RoomEntered,       E,   D,     D,    EV,   K,      K,     E,       E,       D},
    RoomControls{PasswordAsked,     K,   K,     K,    K,    K,      K,     K,       K,       K},
    RoomControls{PasswordGiven,     K,   K,     K,    K,    K,      K,     K,       K,       K},
    RoomControls{PasswordCancelled, E,   K,     E,    K,    K,      K,     K,       K,       K},
    RoomControls{EnterRefused,      E,   K,     E,    K,    K,      K,     K,       K,       K},
    RoomControls{LeavePressed,      D,   K,     K,    D,    K,      K,     K,       K,       K},
    RoomControls{LeaveRoom,         E,   E,     E,    DH,   D,      K,     D,       D,       E},
    RoomControls{DestroyPressed,    D,   K,     K,    K,    DH,     K,     K,       K,       K},
    RoomControls{DestroyRoom,       E,   E,     EV,   D,    DH,     DH,    D,       D,       E},
    RoomControls{LaunchPressed,     D,   K,     K,    K,    K,      D,     K,       K,       K},
    RoomControls{JoinPressed,       D,   K,     K,    K,    K,      K,     K,       K,       K},
    RoomControls{BackAsCreator,     E,   K,     K,    K,    K,      E,     K,       K,       K},
    RoomControls{BackAsMember,      E,   K,     K,    K,    K,      K,     K,       K,       K},
    RoomControls{BackInLobby,       E,   K,     K,    K,    K,      K,     K,       K,       K},
    RoomControls{FirstRoomListed,   K,   K,     E,    K,    K,      K,     K,       K,       K},
    RoomControls{LastRoomGone,      K,   K,     D,    K,    K,      K,     K,       K,       K},
    RoomControls{PreviewShown,      K,   K,     E,    K,    K,      K,     K,       K,       K},
    RoomControls{LoggedOff,         K,   E,     E,    D,    D,      D,     K,       K,       K},
};
// clang-format on

struct Transition {
    Position from;
    RoomEvent event;
    Position to;
};

using enum Position;

/// The ways that a client and a proper server go.
inline constexpr std::array kTransitions{
    Transition{Lobby, CreatePressed, Naming},
    Transition{Naming, NamingCancelled, Lobby},
    Transition{Naming, NamingConfirmed, Creating},
    Transition{Creating, RoomCreated, Creator},
    Transition{Creating, CreateRefused, Lobby},
    Transition{Lobby, EnterPressed, Entering},
    Transition{Entering, RoomEntered, Member},
    Transition{Entering, PasswordAsked, AskingPassword},
    Transition{AskingPassword, PasswordGiven, Entering},
    Transition{AskingPassword, PasswordCancelled, Lobby},
    Transition{Entering, EnterRefused, Lobby},
    Transition{Member, LeavePressed, Leaving},
    Transition{Leaving, LeaveRoom, Lobby},
    Transition{Member, LeaveRoom, Lobby}, // rejected
    Transition{Creator, DestroyPressed, Destroying},
    Transition{Creator, LaunchPressed, Launching},
    Transition{Launching, BackAsCreator, Creator},
    Transition{Member, BackAsMember, Member},
    Transition{Lobby, BackInLobby, Lobby},
    Transition{Destroying, DestroyRoom, Lobby},
    Transition{Member, DestroyRoom, Lobby},
};

} // namespace room_tables

std::string_view ToText(Position position);
std::string_view ToText(RoomEvent event);

class RoomPosition {
public:
    RoomPosition(View& view, Log& log) : view(view), log(log) {}

    Position Now() const { return position; }
    /// Sets the controls by the event's row, and the position. An event that comes where no transition expects it, as
    /// from a server that answers twice or late, acts all the same and leaves a trace.
    void Take(RoomEvent event);

private:
    View& view;
    Log& log;
    Position position = Position::Lobby;
};

} // namespace ombrin

#include "lobby/room_position.h"

#include "foundation/text.h"

#include <algorithm>
#include <optional>

namespace ombrin {

namespace {

using namespace room_tables;

constexpr std::array<std::string_view, 10> kPositions{"Lobby",   "Naming", "Creating",  "Entering", "AskingPassword",
                                                      "Creator", "Member", "Launching", "Leaving",  "Destroying"};

constexpr std::array<std::string_view, kControls.size()> kEvents{
    "CreatePressed", "NamingCancelled", "NamingConfirmed", "RoomCreated",       "CreateRefused", "EnterPressed",
    "RoomEntered",   "PasswordAsked",   "PasswordGiven",   "PasswordCancelled", "EnterRefused",  "LeavePressed",
    "LeaveRoom",     "DestroyPressed",  "DestroyRoom",     "LaunchPressed",     "JoinPressed",   "BackAsCreator",
    "BackAsMember",  "BackInLobby",     "FirstRoomListed", "LastRoomGone",      "PreviewShown",  "LoggedOff"};

constexpr bool RowsStandInTheOrderOfTheEvents() {
    for (std::size_t i = 0; i < kControls.size(); ++i)
        if (static_cast<std::size_t>(kControls.at(i).event) != i) return false;
    return true;
}
static_assert(RowsStandInTheOrderOfTheEvents());

void Set(Control& control, Switch to) {
    if (to == K) return;
    control.SetEnabled(to == E || to == EV);
    if (to == EV || to == DH) control.SetVisible(to == EV);
}

void SetControls(View& view, const RoomControls& row) {
    if (row.view != K) view.SetEnabled(row.view == E);
    Set(view.Create, row.Create);
    Set(view.Enter, row.Enter);
    Set(view.Leave, row.Leave);
    Set(view.Destroy, row.Destroy);
    Set(view.Launch, row.Launch);
    Set(view.SendRoom, row.SendRoom);
    Set(view.RoomText, row.RoomText);
    Set(view.Logoff, row.Logoff);
}

/// Where the event leads, whatever went before; nothing for an event that only sets controls.
std::optional<Position> Destination(RoomEvent event) {
    if (event == LoggedOff) return Lobby;
    const auto* row = std::find_if(kTransitions.begin(), kTransitions.end(),
                                   [&](const Transition& transition) { return transition.event == event; });
    return row == kTransitions.end() ? std::nullopt : std::optional(row->to);
}

bool IsExpected(Position from, RoomEvent event) {
    return event == LoggedOff || std::any_of(kTransitions.begin(), kTransitions.end(), [&](const Transition& row) {
               return row.from == from && row.event == event;
           });
}

} // namespace

std::string_view ToText(Position position) { return kPositions.at(static_cast<std::size_t>(position)); }
std::string_view ToText(RoomEvent event) { return kEvents.at(static_cast<std::size_t>(event)); }

void RoomPosition::Take(RoomEvent event) {
    SetControls(view, kControls.at(static_cast<std::size_t>(event)));
    const auto to = Destination(event);
    if (!to) return;
    if (!IsExpected(position, event))
        log.TraceMessage(Join("unexpected in position ", ToText(position), ": ", ToText(event)));
    position = *to;
}

} // namespace ombrin

// What the main view shows of a lobby, to be emptied when the lobby is left or a game was played.
#pragma once

#include "controls/grid_routines.h"
#include "controls/main_view.h"

namespace ombrin {

/// Lobbies, everybody on the service and buddies stay: the server does not send them again.
inline void ClearLobbyViews(View& view) {
    for (FlexGrid* grid : {&view.msflexRoomLines, &view.msflxMainChatLines}) ClearFlexGrid(*grid);
    for (ListView* list : {&view.RoomUserList, &view.RoomList, &view.UserList}) list->Clear();
    view.RoomText.SetText("");
}

} // namespace ombrin

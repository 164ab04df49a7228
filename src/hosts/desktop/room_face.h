// What the main view shows of the user's position in a room, beside the controls' own states.
#pragma once

#include "hosts/desktop/board.h"
#include "session/game_lobby.h"

namespace ombrin::desktop {

/// What a view that takes no input is waiting for.
QString WaitingFor(Position position);

/// Of the buttons on one spot the enabled one is in front. Whoever comes into a room or out of it has the keys where
/// he talks next, unless he is writing.
class RoomFace {
public:
    RoomFace(GameLobby& client, Board& board);

private:
    void StackButtons();
    void MoveKeys();
    void BringToFront(Control& button, const std::vector<Button*>& spot);

    GameLobby& client;
    Board& board;
    std::vector<std::vector<Button*>> spots;
    std::vector<const Button*> inFront; ///< one a spot
    bool wasInRoom = false;
};

} // namespace ombrin::desktop

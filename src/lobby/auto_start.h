// Whether the game of the lobby starts by itself, and the warning where it does not.
#pragma once

#include "lobby/desk.h"
#include "lobby/game_record.h"

namespace ombrin {

class AutoStart {
public:
    explicit AutoStart(Desk desk) : desk(desk), records(desk.settings, desk.profile) {}

    /// Brings both marks and the warning up to date with the stored record of the current lobby's game.
    void CheckAutoStart();

    bool AutoStartOn() const { return autoStartOn; }
    bool UsesDirectPlay() const { return usesDirectPlay; }

private:
    Desk desk;
    GameRecords records;
    bool autoStartOn = false, usesDirectPlay = false;
};

} // namespace ombrin

// Heartbeats, and leaving a lobby for another.
#pragma once

#include "lobby/desk.h"

namespace ombrin {

class KeepAlive {
public:
    /// Minutes between heartbeats where no setting names others.
    static constexpr std::int16_t kUsualInterval = 4;

    explicit KeepAlive(Desk desk);

    /// Takes interval and countdown from the setting. Raises 13 or 6 when it is no number.
    void ReadHeartBeat();
    /// The change of lobby: everything of this one is cleared, and the server is asked for the list.
    void Logoff_Click();

private:
    void HeartBeatTimer_Timer();

    Desk desk;
};

} // namespace ombrin

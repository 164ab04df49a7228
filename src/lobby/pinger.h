// The pings of the users shown in RoomUserList.
#pragma once

#include "lobby/desk.h"
#include "platform/pings.h"

namespace ombrin {

class Pinger {
public:
    /// Rows that are pinged at most, twice the users of the largest room: who names more must not hold up the client.
    static constexpr std::size_t kMostPings = 64;

    Pinger(Desk desk, Pings& pings);

    /// Pings all rows that have an address, and gives each its picture and its tool tip. A ping that cannot be tried
    /// ends the round: the rows from it on keep what they had.
    void PingTimer_Timer();

private:
    Desk desk;
    Pings& pings;
};

} // namespace ombrin

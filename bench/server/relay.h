// The least that any server on Asio has to do for the same evening: bytes in from the same number of connections, the
// same bytes out to the same connections, no later than after the same delay. No messages, no names, no limits.
#pragma once

#include <cstddef>

namespace ombrin::bench {

struct RelayTask {
    std::size_t room;      ///< connections that hear each other, in the order in which they come
    std::size_t lobby;     ///< connections that hear of each other; a multiple of the room
    double toRoom;         ///< bytes to each of the room for a byte that comes from it
    double toLobby;        ///< and to each of the lobby
    int millisecondsApart; ///< between two writes to a connection
};

/// Prints where it listens, and runs until it is killed.
[[noreturn]] void RunRelay(const RelayTask& task);

} // namespace ombrin::bench

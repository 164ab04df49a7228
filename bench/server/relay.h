// The least that any server on Asio has to do for the same evening: bytes in from the same number of connections, the
// same bytes out to the same connections, no later than after the same delay. No messages, no names, no limits.
#pragma once

#include <cstddef>

namespace ombrin::bench {

struct RelayTask {
    std::size_t group;     ///< connections that hear each other, in the order in which they come
    std::size_t lineIn;    ///< bytes of a line as it comes
    std::size_t lineOut;   ///< bytes of a line as it goes out to each of the group
    int millisecondsApart; ///< between two writes to a connection
};

/// Prints where it listens, and runs until it is killed.
[[noreturn]] void RunRelay(const RelayTask& task);

} // namespace ombrin::bench

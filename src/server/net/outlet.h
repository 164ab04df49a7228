// Writes what connections have to say, in rounds: all that one run of the loop gave to a connection goes out in one
// call. A round over many connections is followed by a pause, so that under load more lines share each call.
#pragma once

#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <memory>
#include <vector>

namespace ombrin::server {

class Connection;

class Outlet {
public:
    explicit Outlet(asio::io_context& loop) : loop(loop), pause(loop) {}

    /// The connection is flushed in the next round. To be called once until then.
    void Add(std::shared_ptr<Connection> connection);

private:
    void Round();

    asio::io_context& loop;
    asio::steady_timer pause;
    std::vector<std::shared_ptr<Connection>> waiting;
    asio::steady_timer::time_point nextRound;
};

} // namespace ombrin::server

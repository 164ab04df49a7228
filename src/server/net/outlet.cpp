#include "server/net/outlet.h"

#include "server/net/connection.h"

#include <asio/post.hpp>

namespace ombrin::server {

namespace {

/// For each connection that a round wrote to: about as long as the write takes, so that writing leaves half of the
/// time to the rest. With 2,000 connections a line waits for 20 ms at most.
constexpr auto kPausePerConnection = std::chrono::microseconds(10);

} // namespace

void Outlet::Add(std::shared_ptr<Connection> connection) {
    waiting.push_back(std::move(connection));
    if (waiting.size() > 1) return;
    if (asio::steady_timer::clock_type::now() >= nextRound) {
        asio::post(loop, [this] { Round(); });
        return;
    }
    pause.expires_at(nextRound);
    pause.async_wait([this](const asio::error_code& problem) {
        if (!problem) Round();
    });
}

void Outlet::Round() {
    std::vector<std::shared_ptr<Connection>> round;
    round.swap(waiting);
    for (const auto& connection : round) connection->Flush();
    nextRound = asio::steady_timer::clock_type::now() + kPausePerConnection * round.size();
}

} // namespace ombrin::server

#include "server/net/loop_alarms.h"

#include <asio/steady_timer.hpp>
#include <memory>

namespace ombrin::server {

TimePoint LoopAlarms::Now() const {
    return std::chrono::time_point_cast<Milliseconds>(std::chrono::steady_clock::now());
}

void LoopAlarms::After(Milliseconds delay, std::function<void()> callback) {
    auto timer = std::make_shared<asio::steady_timer>(loop, delay);
    timer->async_wait([timer, callback = std::move(callback)](const asio::error_code& problem) {
        if (!problem) callback();
    });
}

} // namespace ombrin::server

// The server's time, by the loop.
#pragma once

#include "server/alarms.h"

#include <asio/io_context.hpp>

namespace ombrin::server {

class LoopAlarms : public Alarms {
public:
    explicit LoopAlarms(asio::io_context& loop) : loop(loop) {}
    TimePoint Now() const override;
    void After(Milliseconds delay, std::function<void()> callback) override;

private:
    asio::io_context& loop;
};

} // namespace ombrin::server

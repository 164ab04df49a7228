// Sockets of the machine on the event loop.
#pragma once

#include "platform/network.h"
#include "platform/posix/event_loop.h"

namespace ombrin {

class PosixNetwork : public Network {
public:
    explicit PosixNetwork(EventLoop& loop) : loop(loop) {}
    std::unique_ptr<Socket> MakeSocket(const std::string& name, Socket::Events events) override;

private:
    EventLoop& loop;
};

} // namespace ombrin

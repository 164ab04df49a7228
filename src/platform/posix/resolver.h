// Host names to addresses without stopping the loop.
#pragma once

#include "platform/posix/event_loop.h"

#include <functional>
#include <memory>
#include <netinet/in.h>
#include <string>
#include <vector>

namespace ombrin {

struct SocketAddress {
    sockaddr_storage storage{};
    socklen_t length = 0;

    int Family() const { return storage.ss_family; }
    std::string Text() const; ///< numeric, without the port
    int Port() const;
};

/// The addresses of a literal; empty when it is a name.
std::vector<SocketAddress> LiteralAddresses(const std::string& host, int port);

/// One look-up at a time, on a thread of its own that shares nothing with the loop but the result. Dropping the object
/// forgets the look-up; the thread ends by itself.
class Resolver {
public:
    using Done = std::function<void(std::vector<SocketAddress>)>; ///< empty: no such host

    explicit Resolver(EventLoop& loop) : loop(loop) {}
    void Start(const std::string& host, int port, Done done);
    void Forget();

private:
    struct Lookup;
    EventLoop& loop;
    std::shared_ptr<Lookup> lookup;
    EventLoop::Watch watch;
};

} // namespace ombrin

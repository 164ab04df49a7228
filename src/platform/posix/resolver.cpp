#include "platform/posix/resolver.h"

#include "foundation/runtime_error.h"
#include "platform/posix/descriptor.h"

#include <arpa/inet.h>
#include <array>
#include <cstring>
#include <fcntl.h>
#include <netdb.h>
#include <system_error>
#include <thread>

namespace ombrin {

namespace {

std::vector<SocketAddress> Lookup(const std::string& host, int port, int flags) {
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = flags | AI_NUMERICSERV;
    addrinfo* found = nullptr;
    std::vector<SocketAddress> addresses;
    if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) return addresses;
    for (const addrinfo* entry = found; entry != nullptr; entry = entry->ai_next) {
        SocketAddress address;
        std::memcpy(&address.storage, entry->ai_addr, entry->ai_addrlen);
        address.length = entry->ai_addrlen;
        addresses.push_back(address);
    }
    freeaddrinfo(found);
    return addresses;
}

} // namespace

std::string SocketAddress::Text() const {
    std::array<char, NI_MAXHOST> text{};
    const auto* address = reinterpret_cast<const sockaddr*>(&storage);
    if (getnameinfo(address, length, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) != 0) return {};
    return text.data();
}

int SocketAddress::Port() const {
    if (Family() == AF_INET) return ntohs(reinterpret_cast<const sockaddr_in*>(&storage)->sin_port);
    if (Family() == AF_INET6) return ntohs(reinterpret_cast<const sockaddr_in6*>(&storage)->sin6_port);
    return 0;
}

std::vector<SocketAddress> LiteralAddresses(const std::string& host, int port) {
    return Lookup(host, port, AI_NUMERICHOST);
}

struct Resolver::Lookup {
    std::vector<SocketAddress> addresses; ///< written by the thread before it closes its end of the pipe
};

void Resolver::Start(const std::string& host, int port, Done done) {
    Forget();
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) throw RuntimeError(ErrorNumber::DeviceIo);
    auto heard = std::make_shared<Descriptor>(ends[0]);
    auto told = std::make_shared<Descriptor>(ends[1]);
    lookup = std::make_shared<Lookup>();
    watch = loop.OnReady(ends[0], EventLoop::Interest::Read, [this, heard, done = std::move(done)] {
        const auto finished = std::move(lookup);
        const auto tell = done; // the watch, and this callback with it, goes now
        watch.Drop();
        tell(finished->addresses);
    });
    try {
        std::thread([result = lookup, told, host, port] {
            result->addresses = ombrin::Lookup(host, port, AI_ADDRCONFIG);
            told->Reset();
        }).detach();
    } catch (const std::system_error&) {
        told->Reset(); // no thread to be had: the host stays unknown
    }
}

void Resolver::Forget() {
    watch.Drop();
    lookup.reset();
}

} // namespace ombrin

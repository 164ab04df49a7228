// A port that takes connections.
#pragma once

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/steady_timer.hpp>
#include <functional>
#include <memory>
#include <string>

namespace ombrin::server {

class Listener {
public:
    using Accepted = std::function<void(asio::ip::tcp::socket, const asio::ip::tcp::endpoint&)>;

    /// Raises std::system_error when the address cannot be had.
    Listener(asio::io_context& loop, const asio::ip::tcp::endpoint& endpoint, Accepted accepted);

    void Start();
    void Stop();
    asio::ip::tcp::endpoint Where() const { return acceptor.local_endpoint(); }

private:
    void Accept();

    asio::ip::tcp::acceptor acceptor;
    asio::steady_timer pause;
    Accepted accepted;
};

/// Raises std::system_error that names the endpoint.
std::unique_ptr<Listener> Listen(asio::io_context& loop, const asio::ip::tcp::endpoint& endpoint,
                                 Listener::Accepted accepted);
/// As `ADDRESS:PORT`, an IPv6 address in brackets.
std::string EndpointText(const asio::ip::tcp::endpoint& endpoint);
/// The peer's address as users know it: IPv4 also where it came in IPv6's clothes.
asio::ip::address PlainAddress(const asio::ip::address& address);
/// What counts as one place: an IPv4 address, a network of 64 bits in IPv6, as its owner has all of its addresses.
std::string OriginOf(const asio::ip::address& plain);

} // namespace ombrin::server

#include "server/net/listener.h"

#include "foundation/text.h"

#include <asio/ip/v6_only.hpp>

namespace ombrin::server {

namespace {

/// With all descriptors taken, accepting again at once would spin.
constexpr auto kPauseAfterFailure = std::chrono::milliseconds(100);

} // namespace

Listener::Listener(asio::io_context& loop, const asio::ip::tcp::endpoint& endpoint, Accepted accepted)
    : acceptor(loop, endpoint.protocol()), pause(loop), accepted(std::move(accepted)) {
    acceptor.set_option(asio::ip::tcp::acceptor::reuse_address(true));
    acceptor.bind(endpoint);
    acceptor.listen();
}

void Listener::Start() { Accept(); }

void Listener::Stop() {
    asio::error_code ignored; // closed is closed
    acceptor.close(ignored);
    pause.cancel();
}

void Listener::Accept() {
    acceptor.async_accept([this](const asio::error_code& problem, asio::ip::tcp::socket socket) {
        if (!acceptor.is_open()) return;
        if (problem) {
            pause.expires_after(kPauseAfterFailure);
            pause.async_wait([this](const asio::error_code& stopped) {
                if (!stopped) Accept();
            });
            return;
        }
        asio::error_code gone;
        const asio::ip::tcp::endpoint peer = socket.remote_endpoint(gone);
        if (!gone) accepted(std::move(socket), peer);
        Accept();
    });
}

std::unique_ptr<Listener> Listen(asio::io_context& loop, const asio::ip::tcp::endpoint& endpoint,
                                 Listener::Accepted accepted) {
    try {
        return std::make_unique<Listener>(loop, endpoint, std::move(accepted));
    } catch (const std::system_error& problem) {
        throw std::system_error(problem.code(), Join("cannot listen on ", EndpointText(endpoint)));
    }
}

std::string EndpointText(const asio::ip::tcp::endpoint& endpoint) {
    const std::string address = endpoint.address().to_string();
    const std::string port = std::to_string(endpoint.port());
    return endpoint.address().is_v6() ? Join("[", address, "]:", port) : Join(address, ":", port);
}

asio::ip::address PlainAddress(const asio::ip::address& address) {
    if (!address.is_v6() || !address.to_v6().is_v4_mapped()) return address;
    return asio::ip::make_address_v4(asio::ip::v4_mapped, address.to_v6());
}

std::string OriginOf(const asio::ip::address& plain) {
    if (plain.is_v4()) return plain.to_string();
    constexpr std::size_t kNetworkBytes = 8;
    asio::ip::address_v6::bytes_type bytes = plain.to_v6().to_bytes();
    std::fill(bytes.begin() + kNetworkBytes, bytes.end(), std::uint8_t{0});
    return asio::ip::address_v6(bytes).to_string() + "/64";
}

} // namespace ombrin::server

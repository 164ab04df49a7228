#include "server/net/update_port.h"

#include "foundation/text.h"

#include <asio/error.hpp>
#include <sys/resource.h>
#include <unistd.h>

namespace ombrin::server {

namespace {

using asio::ip::tcp;

/// The client reads the port as a signed number of 16 bits. The search begins above the usual services.
constexpr std::uint16_t kFirstPort = 20'000;
constexpr std::uint16_t kHighestPort = 32'767;

/// Steps of the scheduler: where the processors are busy, a line goes before a file.
constexpr int kBehindTheLobby = 10;

} // namespace

UpdatePort::UpdatePort(const asio::ip::address& address, std::uint16_t port, Release offered, Admission::Bounds bounds,
                       Log& log)
    : release(std::move(offered)), alarms(loop), admission(bounds, alarms, log),
      arrivals(bounds.perOrigin), around{release, alarms, log, input,
                                         [this](const auto& connection) { Forget(connection); }},
      listener(Listen(address, port)) {}

std::unique_ptr<Listener> UpdatePort::Listen(const asio::ip::address& address, std::uint16_t port) {
    const auto accept = [this](tcp::socket socket, const tcp::endpoint& peer) { Accept(std::move(socket), peer); };
    if (port != 0) return server::Listen(loop, {address, port}, accept);
    for (std::uint16_t candidate = kFirstPort;; ++candidate) {
        try {
            return server::Listen(loop, {address, candidate}, accept);
        } catch (const std::system_error& problem) {
            if (problem.code() != asio::error::address_in_use || candidate == kHighestPort) throw;
        }
    }
}

void UpdatePort::Start() {
    listener->Start();
    LookAround();
    thread = std::thread([this] {
        setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kBehindTheLobby); // of this thread alone
        loop.run();
    });
}

void UpdatePort::Stop() {
    loop.stop();
    if (thread.joinable()) thread.join();
}

void UpdatePort::Accept(tcp::socket socket, const tcp::endpoint& peer) {
    const std::string address = PlainAddress(peer.address()).to_string();
    std::string origin = OriginOf(PlainAddress(peer.address()));
    if (!admission.Enter(origin)) return;
    const Milliseconds wait = arrivals.Wait(origin, alarms.Now());
    auto connection = std::make_shared<UpdateConnection>(std::move(socket), std::move(origin), around);
    connections.insert(connection);
    connection->Start(Join("files #", std::to_string(++lastId), " ", address), wait);
}

void UpdatePort::Forget(const std::shared_ptr<UpdateConnection>& connection) {
    connections.erase(connection);
    admission.Leave(connection->Origin());
}

void UpdatePort::LookAround() {
    const std::vector<std::shared_ptr<UpdateConnection>> present(connections.begin(), connections.end());
    for (const auto& connection : present) connection->Check();
    arrivals.Forget(alarms.Now());
    alarms.After(kLivenessInterval, [this] { LookAround(); });
}

} // namespace ombrin::server

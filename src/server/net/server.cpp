#include "server/net/server.h"

#include "foundation/text.h"

#include <algorithm>
#include <asio/error.hpp>
#include <asio/post.hpp>

namespace ombrin::server {

namespace {

using asio::ip::tcp;

/// Connections beyond the users that may be logged on: room for those who are about to hear that it is full.
constexpr std::size_t kSpareConnections = 256;
/// Between two lines of the log about refused connections.
constexpr Milliseconds kRefusalNotes{1'000};

/// The client reads the port of the files as a signed number of 16 bits. The search begins above the usual services.
constexpr std::uint16_t kFirstFilesPort = 20'000;
constexpr std::uint16_t kHighestFilesPort = 32'767;

std::unique_ptr<Listener> Listen(asio::io_context& loop, const tcp::endpoint& endpoint, Listener::Accepted accepted) {
    try {
        return std::make_unique<Listener>(loop, endpoint, std::move(accepted));
    } catch (const std::system_error& problem) {
        throw std::system_error(problem.code(), Join("cannot listen on ", EndpointText(endpoint)));
    }
}

/// One thread checks passwords for each processor but the loop's own, and not so many that they need much memory.
unsigned HashingThreads() {
    constexpr unsigned kMost = 4;
    return std::clamp(std::thread::hardware_concurrency(), 2U, kMost + 1) - 1;
}

std::unique_ptr<Listener> ListenForFiles(asio::io_context& loop, const asio::ip::address& address, std::uint16_t port) {
    // Handing out files is not offered yet: who asks is sent away.
    const auto sendAway = [](const tcp::socket&, const tcp::endpoint&) {};
    if (port != 0) return Listen(loop, {address, port}, sendAway);
    for (std::uint16_t candidate = kFirstFilesPort;; ++candidate) {
        try {
            return Listen(loop, {address, candidate}, sendAway);
        } catch (const std::system_error& problem) {
            if (problem.code() != asio::error::address_in_use || candidate == kHighestFilesPort) throw;
        }
    }
}

} // namespace

Server::Server(const Options& options, const Configuration& configuration, Log& log)
    : log(log), limits(configuration.limits), accounts(options.home + "/accounts.sqlite"), alarms(loop),
      passwords({limits.passwordMemoryKiB, limits.passwordPasses}, HashingThreads(),
                [this](std::function<void()> callback) { asio::post(loop, std::move(callback)); }),
      service(configuration, {options.openAccounts, options.trustEmbedded}, {alarms, passwords, accounts, log}),
      outlet(loop), around{service, outlet, input, [this](const auto& connection) { Forget(connection); }},
      lobby(Listen(loop, {asio::ip::make_address(options.listen), options.port},
                   [this](tcp::socket socket, const tcp::endpoint& peer) { Accept(std::move(socket), peer); })),
      files(ListenForFiles(loop, lobby->Where().address(), options.filesPort)), signals(loop, SIGINT, SIGTERM) {}

Server::~Server() = default;

std::string Server::ReadyLine() const {
    return Join("listening on ", EndpointText(lobby->Where()), ", files on ", EndpointText(files->Where()));
}

void Server::Run() {
    signals.async_wait([this](const asio::error_code& problem, int number) {
        if (problem) return;
        log.Line("ends by signal ", std::to_string(number));
        Stop();
    });
    lobby->Start();
    files->Start();
    LookAround();
    loop.run();
}

void Server::Accept(tcp::socket socket, const tcp::endpoint& peer) {
    const asio::ip::address address = PlainAddress(peer.address());
    std::string origin = OriginOf(address);
    std::size_t& there = byOrigin[origin];
    if (there >= limits.connectionsPerAddress || connections.size() >= limits.users + kSpareConnections) {
        if (there == 0) byOrigin.erase(origin);
        if (alarms.Now() - refusedAt < kRefusalNotes) return;
        refusedAt = alarms.Now();
        log.Line("too many connections: one from ", origin, " is refused, and maybe others in this second");
        return;
    }
    ++there;
    auto connection = std::make_shared<Connection>(std::move(socket), std::move(origin), around);
    connections.insert(connection);
    connection->Start(address.to_string());
}

void Server::Forget(const std::shared_ptr<Connection>& connection) {
    connections.erase(connection);
    const auto found = byOrigin.find(connection->Origin());
    if (--found->second == 0) byOrigin.erase(found);
}

void Server::LookAround() {
    service.CloseSilent();
    const std::vector<std::shared_ptr<Connection>> present(connections.begin(), connections.end());
    for (const auto& connection : present) connection->CheckPeer();
    alarms.After(kLivenessInterval, [this] { LookAround(); });
}

void Server::Stop() {
    lobby->Stop();
    files->Stop();
    const std::vector<std::shared_ptr<Connection>> present(connections.begin(), connections.end());
    for (const auto& connection : present) connection->Flush();
    loop.stop();
}

} // namespace ombrin::server

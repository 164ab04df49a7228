#include "server/net/server.h"

#include "foundation/text.h"

#include <algorithm>
#include <asio/post.hpp>
#include <sys/resource.h>

namespace ombrin::server {

namespace {

using asio::ip::tcp;

/// Connections beyond the users that may be logged on: room for those who are about to hear that it is full.
constexpr std::size_t kSpareConnections = 256;
Admission::Bounds BoundsOf(const Limits& limits) {
    return {limits.connectionsPerAddress, limits.users + kSpareConnections};
}

/// Each takes two descriptors, its own and its file's, and where these are few the lobby goes first.
Admission::Bounds BoundsOfFiles(const Limits& limits) {
    constexpr rlim_t kEach = 8; // three quarters are left
    Admission::Bounds bounds = BoundsOf(limits);
    rlimit descriptors{};
    if (getrlimit(RLIMIT_NOFILE, &descriptors) == 0)
        bounds.all = std::min<rlim_t>(bounds.all, descriptors.rlim_cur / kEach);
    return bounds;
}

/// One thread checks passwords for each processor but the loop's own, and not so many that they need much memory.
unsigned HashingThreads() {
    constexpr unsigned kMost = 4;
    return std::clamp(std::thread::hardware_concurrency(), 2U, kMost + 1) - 1;
}

} // namespace

Server::Server(const Options& options, const Configuration& configuration, Release release, Log& log)
    : log(log), accounts(options.home + "/accounts.sqlite"), alarms(loop),
      passwords({configuration.limits.passwordMemoryKiB, configuration.limits.passwordPasses}, HashingThreads(),
                [this](std::function<void()> callback) { asio::post(loop, std::move(callback)); }),
      service(configuration, {options.openAccounts, options.trustEmbedded}, {alarms, passwords, accounts, log}),
      outlet(loop), around{service, outlet, input, [this](const auto& connection) { Forget(connection); }},
      admission(BoundsOf(configuration.limits), alarms, log),
      lobby(Listen(loop, {asio::ip::make_address(options.listen), options.port},
                   [this](tcp::socket socket, const tcp::endpoint& peer) { Accept(std::move(socket), peer); })),
      files(lobby->Where().address(), options.filesPort, std::move(release), BoundsOfFiles(configuration.limits), log),
      signals(loop, SIGINT, SIGTERM) {
    service.Require(files.Offered().files, files.Where().port());
}

Server::~Server() = default;

std::string Server::ReadyLine() const {
    return Join("listening on ", EndpointText(lobby->Where()), ", files on ", EndpointText(files.Where()));
}

void Server::Run() {
    signals.async_wait([this](const asio::error_code& problem, int number) {
        if (problem) return;
        log.Line("ends by signal ", std::to_string(number));
        Stop();
    });
    lobby->Start();
    files.Start();
    LookAround();
    loop.run();
}

void Server::Accept(tcp::socket socket, const tcp::endpoint& peer) {
    const asio::ip::address address = PlainAddress(peer.address());
    std::string origin = OriginOf(address);
    if (!admission.Enter(origin)) return;
    auto connection = std::make_shared<Connection>(std::move(socket), std::move(origin), around);
    connections.insert(connection);
    connection->Start(address.to_string());
}

void Server::Forget(const std::shared_ptr<Connection>& connection) {
    connections.erase(connection);
    admission.Leave(connection->Origin());
}

void Server::LookAround() {
    service.CloseSilent();
    const std::vector<std::shared_ptr<Connection>> present(connections.begin(), connections.end());
    for (const auto& connection : present) connection->CheckPeer();
    alarms.After(kLivenessInterval, [this] { LookAround(); });
}

void Server::Stop() {
    lobby->Stop();
    const std::vector<std::shared_ptr<Connection>> present(connections.begin(), connections.end());
    for (const auto& connection : present) connection->Flush();
    files.Stop(); // behind the lobby's last words, as a disk may keep it waiting
    loop.stop();
}

} // namespace ombrin::server

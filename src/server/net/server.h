// All parts of the running server on one loop.
#pragma once

#include "server/account_store.h"
#include "server/configuration.h"
#include "server/hashing_pool.h"
#include "server/net/connection.h"
#include "server/net/listener.h"
#include "server/net/loop_alarms.h"
#include "server/net/outlet.h"
#include "server/options.h"
#include "server/service.h"

#include <asio/signal_set.hpp>
#include <map>
#include <memory>
#include <string>
#include <unordered_set>

namespace ombrin::server {

class Server {
public:
    /// Raises std::system_error when an address cannot be had, StoreError for the database.
    Server(const Options& options, const Configuration& configuration, Log& log);
    ~Server();

    /// `listening on ADDRESS:PORT, files on ADDRESS:PORT`
    std::string ReadyLine() const;
    /// Until SIGINT or SIGTERM.
    void Run();

private:
    void Accept(asio::ip::tcp::socket socket, const asio::ip::tcp::endpoint& peer);
    void Forget(const std::shared_ptr<Connection>& connection);
    void LookAround();
    void Stop();

    asio::io_context loop{1};
    Log& log;
    const Limits limits;
    AccountStore accounts;
    LoopAlarms alarms;
    HashingPool passwords;
    Service service;
    Outlet outlet;
    std::array<char, 65'536> input{};
    Connection::Surroundings around;
    std::unordered_set<std::shared_ptr<Connection>> connections;
    std::map<std::string, std::size_t> byOrigin; ///< connections; none is 0
    TimePoint refusedAt;                         ///< when a connection was last refused with a line in the log
    std::unique_ptr<Listener> lobby;
    std::unique_ptr<Listener> files;
    asio::signal_set signals;
};

} // namespace ombrin::server

// All parts of the running server on one loop.
#pragma once

#include "server/account_store.h"
#include "server/configuration.h"
#include "server/hashing_pool.h"
#include "server/net/admission.h"
#include "server/net/connection.h"
#include "server/net/listener.h"
#include "server/net/loop_alarms.h"
#include "server/net/outlet.h"
#include "server/net/update_port.h"
#include "server/options.h"
#include "server/service.h"

#include <asio/signal_set.hpp>
#include <memory>
#include <string>
#include <unordered_set>

namespace ombrin::server {

class Server {
public:
    /// Raises std::system_error when an address cannot be had, StoreError for the database.
    Server(const Options& options, const Configuration& configuration, Release release, Log& log);
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
    AccountStore accounts;
    LoopAlarms alarms;
    HashingPool passwords;
    Service service;
    Outlet outlet;
    std::array<char, 65'536> input{};
    Connection::Surroundings around;
    std::unordered_set<std::shared_ptr<Connection>> connections;
    Admission admission;
    std::unique_ptr<Listener> lobby;
    UpdatePort files;
    asio::signal_set signals;
};

} // namespace ombrin::server

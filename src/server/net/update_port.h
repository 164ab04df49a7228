// The port at which clients fetch the files of the release. It runs on a loop and a thread of its own: a slow disk and
// a crowd that updates are nothing that the lobby has to wait for.
#pragma once

#include "server/arrivals.h"
#include "server/configuration.h"
#include "server/net/admission.h"
#include "server/net/listener.h"
#include "server/net/loop_alarms.h"
#include "server/net/update_connection.h"

#include <memory>
#include <thread>
#include <unordered_set>

namespace ombrin::server {

class UpdatePort {
public:
    /// Port 0 takes a free one that the client's 16 bits can hold. Raises std::system_error when it cannot be had.
    UpdatePort(const asio::ip::address& address, std::uint16_t port, Release release, Admission::Bounds bounds,
               Log& log);
    ~UpdatePort() { Stop(); }
    UpdatePort(const UpdatePort&) = delete;
    UpdatePort& operator=(const UpdatePort&) = delete;

    asio::ip::tcp::endpoint Where() const { return listener->Where(); }
    const Release& Offered() const { return release; }
    /// `log` takes lines from its thread until it is stopped.
    void Start();
    void Stop();

private:
    std::unique_ptr<Listener> Listen(const asio::ip::address& address, std::uint16_t port);
    void Accept(asio::ip::tcp::socket socket, const asio::ip::tcp::endpoint& peer);
    void Forget(const std::shared_ptr<UpdateConnection>& connection);
    void LookAround();

    asio::io_context loop{1};
    const Release release;
    LoopAlarms alarms;
    Admission admission;
    Arrivals arrivals;
    std::array<char, 65'536> input{};
    UpdateConnection::Surroundings around;
    std::unordered_set<std::shared_ptr<UpdateConnection>> connections;
    std::uint64_t lastId = 0;
    std::unique_ptr<Listener> listener;
    std::thread thread;
};

} // namespace ombrin::server

// One client's TCP connection: bytes to messages, messages to bytes, and the bounds of both.
#pragma once

#include "server/message_cutter.h"
#include "server/net/liveness.h"
#include "server/net/outlet.h"
#include "server/service.h"

#include <array>
#include <asio/ip/tcp.hpp>
#include <asio/steady_timer.hpp>
#include <functional>
#include <memory>
#include <string>

namespace ombrin::server {

class Connection final : public Peer, public std::enable_shared_from_this<Connection> {
public:
    /// In bytes: what may wait for a client that does not read. One that stands still for minutes, as when it starts
    /// a game, stays far below it.
    static constexpr std::size_t kMostWaiting = 4U << 20U;

    struct Surroundings {
        Service& service;
        Outlet& outlet;
        std::array<char, 65'536>& input; ///< one for all: a connection that is quiet owns no memory for reading
        std::function<void(const std::shared_ptr<Connection>&)> ended;
    };

    Connection(asio::ip::tcp::socket socket, std::string origin, Surroundings& around);

    void Start(std::string address);
    const std::string& Origin() const { return origin; }
    /// Ends the connection when its peer does not answer any more. To be called every kLivenessInterval.
    void CheckPeer();
    /// Writes what waits, as far as the socket takes it.
    void Flush();
    void End(std::string_view why);

    void Send(std::string_view message) override;
    void Close() override;
    void Continue() override;

private:
    enum class State { Open, Closing, Ended };

    void AwaitInput();
    void Read();
    void Process();
    void WantFlush();
    void AwaitRoom();
    void Drop();
    bool Listening() const { return state == State::Open && session->holds == 0; }
    std::string_view Waiting() const { return std::string_view(output).substr(written); }

    asio::ip::tcp::socket socket;
    asio::steady_timer closing;
    const std::string origin;
    Surroundings& around;
    Session* session = nullptr;
    State state = State::Open;
    MessageCutter cutter;
    std::string output;
    std::size_t written = 0; ///< of the output, by now
    bool reading = false;
    bool processing = false;
    bool flushing = false; ///< a round of the outlet is coming, or room in the socket
    bool dropped = false;
    PeerWatch watch;
};

} // namespace ombrin::server

#include "relay.h"

#include <array>
#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/steady_timer.hpp>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace ombrin::bench {

namespace {

using asio::ip::tcp;

class Relay {
public:
    explicit Relay(const RelayTask& task)
        : task(task), acceptor(loop, tcp::endpoint(asio::ip::address_v4::loopback(), 0)), tick(loop) {}

    void Run() {
        std::cout << "listening on 127.0.0.1:" << acceptor.local_endpoint().port() << "," << std::endl;
        Accept();
        Tick();
        loop.run();
    }

private:
    struct Lobby {
        double owed = 0; ///< bytes to each of it
    };
    struct Room {
        Lobby& lobby;
        std::vector<std::shared_ptr<tcp::socket>> sockets{};
        double owed = 0; ///< bytes to each of it, besides the lobby's
    };

    void Accept() {
        acceptor.async_accept([this](const asio::error_code& problem, tcp::socket socket) {
            if (problem) return;
            socket.non_blocking(true);
            socket.set_option(tcp::no_delay(true));
            if (accepted % task.lobby == 0) lobbies.push_back(std::make_unique<Lobby>());
            if (accepted % task.room == 0) rooms.push_back(std::make_unique<Room>(Room{*lobbies.back()}));
            ++accepted;
            auto shared = std::make_shared<tcp::socket>(std::move(socket));
            rooms.back()->sockets.push_back(shared);
            Read(shared, *rooms.back());
            Accept();
        });
    }

    void Read(const std::shared_ptr<tcp::socket>& socket, Room& room) {
        socket->async_wait(tcp::socket::wait_read, [this, socket, &room](const asio::error_code& problem) {
            if (problem) return;
            asio::error_code ended;
            const auto size = static_cast<double>(socket->read_some(asio::buffer(input), ended));
            room.owed += size * task.toRoom;
            room.lobby.owed += size * task.toLobby;
            if (!ended) Read(socket, room);
        });
    }

    void Tick() {
        for (const auto& room : rooms) {
            room->owed += room->lobby.owed;
            const auto due = static_cast<std::size_t>(room->owed);
            room->owed -= static_cast<double>(due);
            if (due == 0) continue;
            output.resize(due, 'x');
            for (const auto& socket : room->sockets) {
                asio::error_code full; // what a socket cannot take is lost: the reader falls behind and it shows
                socket->write_some(asio::buffer(output), full);
            }
        }
        for (const auto& lobby : lobbies) lobby->owed = 0;
        tick.expires_after(std::chrono::milliseconds(task.millisecondsApart));
        tick.async_wait([this](const asio::error_code&) { Tick(); });
    }

    const RelayTask task;
    asio::io_context loop{1};
    tcp::acceptor acceptor;
    asio::steady_timer tick;
    std::vector<std::unique_ptr<Lobby>> lobbies;
    std::vector<std::unique_ptr<Room>> rooms;
    std::size_t accepted = 0;
    std::array<char, 65'536> input{};
    std::string output;
};

} // namespace

void RunRelay(const RelayTask& task) {
    Relay(task).Run();
    std::exit(0); // NOLINT(concurrency-mt-unsafe): one thread
}

} // namespace ombrin::bench

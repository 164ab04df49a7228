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
    struct Group {
        std::vector<std::shared_ptr<tcp::socket>> sockets;
        std::size_t bytesIn = 0;
    };

    void Accept() {
        acceptor.async_accept([this](const asio::error_code& problem, tcp::socket socket) {
            if (problem) return;
            socket.non_blocking(true);
            socket.set_option(tcp::no_delay(true));
            if (groups.empty() || groups.back()->sockets.size() == task.group)
                groups.push_back(std::make_unique<Group>());
            auto shared = std::make_shared<tcp::socket>(std::move(socket));
            groups.back()->sockets.push_back(shared);
            Read(shared, *groups.back());
            Accept();
        });
    }

    void Read(const std::shared_ptr<tcp::socket>& socket, Group& group) {
        socket->async_wait(tcp::socket::wait_read, [this, socket, &group](const asio::error_code& problem) {
            asio::error_code ended;
            if (!problem) group.bytesIn += socket->read_some(asio::buffer(input), ended);
            if (!problem && !ended) Read(socket, group);
        });
    }

    void Tick() {
        for (const auto& group : groups) {
            const std::size_t lines = group->bytesIn / task.lineIn;
            group->bytesIn %= task.lineIn;
            if (lines == 0) continue;
            output.resize(lines * task.lineOut, 'x');
            for (const auto& socket : group->sockets) {
                asio::error_code full; // what a socket cannot take is lost: the reader falls behind and it shows
                socket->write_some(asio::buffer(output), full);
            }
        }
        tick.expires_after(std::chrono::milliseconds(task.millisecondsApart));
        tick.async_wait([this](const asio::error_code&) { Tick(); });
    }

    const RelayTask task;
    asio::io_context loop{1};
    tcp::acceptor acceptor;
    asio::steady_timer tick;
    std::vector<std::unique_ptr<Group>> groups;
    std::array<char, 65'536> input{};
    std::string output;
};

} // namespace

void RunRelay(const RelayTask& task) {
    Relay(task).Run();
    std::exit(0); // NOLINT(concurrency-mt-unsafe): one thread
}

} // namespace ombrin::bench

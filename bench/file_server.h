// A server of one file for the benchmark of the update, in a process of its own.
#pragma once

#include "platform/posix/descriptor.h"

#include <algorithm>
#include <arpa/inet.h>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>

namespace ombrin::bench {

inline constexpr std::size_t kKiB = 1024, kMiB = 1024 * kKiB;

inline void Check(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "bench-update: %s\n", what);
    std::_Exit(2);
}

/// Another process, which does not outlive this one.
inline pid_t Fork() {
    const pid_t child = fork();
    Check(child >= 0, "no other process");
    if (child == 0) prctl(PR_SET_PDEATHSIG, SIGKILL);
    return child;
}

/// Bytes of the file, which no cut and no repetition of a buffer leaves unnoticed. At most kMiB at once.
inline std::string_view Content(std::size_t offset, std::size_t count) {
    constexpr std::size_t kPeriod = 65'521;
    static const std::string bytes = [] {
        std::minstd_rand noise;
        std::string once(kPeriod, '\0'), all;
        for (char& byte : once) byte = static_cast<char>(noise() >> 8U);
        while (all.size() < kPeriod + kMiB) all += once;
        return all;
    }();
    return std::string_view(bytes).substr(offset % kPeriod, count);
}

/// The smallest server of a file: a buffer for each 24 and 25.
inline void Serve(int listener, std::size_t buffer, std::size_t size) {
    const Descriptor connection(accept(listener, nullptr, nullptr));
    std::size_t sent = 0;
    char asked[4096];
    for (ssize_t taken = 1; taken > 0;) {
        taken = recv(connection.Number(), asked, sizeof asked, 0);
        for (auto due = std::count(asked, asked + std::max<ssize_t>(taken, 0), '~'); due > 0 && sent < size; --due) {
            const std::string_view bytes = Content(sent, std::min(buffer, size - sent));
            for (std::size_t done = 0; done < bytes.size();) {
                const ssize_t more = send(connection.Number(), &bytes[done], bytes.size() - done, MSG_NOSIGNAL);
                if (more <= 0) return;
                done += static_cast<std::size_t>(more);
            }
            sent += bytes.size();
        }
    }
}

class Server {
public:
    Server(std::size_t buffer, std::size_t size) : listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        Check(BindBelow(kPorts) && listen(listener.Number(), 1) == 0, "no port to listen on");
        process = Fork();
        if (process == 0) Serve(listener.Number(), buffer, size), std::_Exit(0);
    }
    ~Server() {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    int port = 0;

private:
    static constexpr int kPorts = 32'768; ///< a list names a smaller one

    bool BindBelow(int end) {
        std::random_device choice;
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        constexpr int kTries = 1000, kFirst = 1024;
        for (int i = 0; i < kTries; ++i) {
            port = std::uniform_int_distribution(kFirst, end - 1)(choice);
            address.sin_port = htons(static_cast<in_port_t>(port));
            if (bind(listener.Number(), reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) return true;
        }
        return false;
    }

    Descriptor listener;
    pid_t process = -1;
};

} // namespace ombrin::bench

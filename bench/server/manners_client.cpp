#include "manners_client.h"

#include "session/wire/client_message.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace ombrin::bench {

MannersClient::MannersClient(std::uint16_t port) : descriptor(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("a client cannot connect");
}

MannersClient::MannersClient(std::uint16_t port, const std::string& name) : MannersClient(port) {
    this->name = name;
    Send(client_message::Logon(name + ";temp;127.0.0.1", "pw"));
    ReadUntil("22:");
    Send(client_message::EnterLobby(Record(), ""));
    ReadUntil("48:" + name);
}

MannersClient::~MannersClient() { close(descriptor); }

std::size_t MannersClient::Send(std::string_view bytes) {
    const ssize_t sent = send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0 && errno != EAGAIN) gone = true;
    return sent < 0 ? 0 : static_cast<std::size_t>(sent);
}

std::string MannersClient::Read() {
    std::array<char, 65'536> bytes{};
    const ssize_t size = recv(descriptor, bytes.data(), bytes.size(), MSG_DONTWAIT);
    if (size == 0 || (size < 0 && errno != EAGAIN)) gone = true;
    return size <= 0 ? std::string() : std::string(bytes.data(), static_cast<std::size_t>(size));
}

void MannersClient::ReadUntil(std::string_view text) {
    constexpr int kPatience = 10'000; // milliseconds
    std::string read;
    while (read.find(text) == std::string::npos) {
        pollfd wait{descriptor, POLLIN, 0};
        if (poll(&wait, 1, kPatience) == 1) read += Read();
        if (wait.revents == 0 || gone) throw std::runtime_error(name + " got no answer");
    }
}

} // namespace ombrin::bench

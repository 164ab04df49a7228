#include "server_process.h"

#include "session/wire/client_message.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <sstream>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace ombrin::server::test {

namespace {

/// Milliseconds; far more than anything takes, even under a sanitizer.
constexpr int kPatience = 30'000;

bool Readable(int descriptor) {
    pollfd wait{descriptor, POLLIN, 0};
    return poll(&wait, 1, kPatience) == 1;
}

/// Of `ADDRESS:PORT` behind a text; 0 when the line is another one.
std::uint16_t PortBehind(const std::string& line, std::string_view text) {
    const std::size_t at = line.find(text);
    const std::size_t colon = at == std::string::npos ? at : line.find(':', at + text.size());
    if (colon == std::string::npos) return 0;
    std::uint16_t port = 0;
    std::from_chars(line.data() + colon + 1, line.data() + line.size(), port);
    return port;
}

} // namespace

ServerProcess::ServerProcess(const std::string& home, std::vector<std::string> options, std::string_view configuration)
    : logFile(home + "/log") {
    if (!configuration.empty()) std::ofstream(home + "/server.json") << configuration;
    if (std::find(options.begin(), options.end(), "--port") == options.end())
        options.insert(options.begin(), {"--port", "0"});
    options.insert(options.begin(), {ARDVELLE_SERVER, "--home", home});
    std::vector<char*> arguments;
    arguments.reserve(options.size() + 1);
    for (std::string& option : options) arguments.push_back(option.data());
    arguments.push_back(nullptr);

    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    output = ends[0];
    process = Fork([&] {
        dup2(ends[1], STDOUT_FILENO);
        dup2(open(logFile.c_str(), O_WRONLY | O_CREAT | O_APPEND, S_IRUSR), STDERR_FILENO);
        return execv(ARDVELLE_SERVER, arguments.data());
    });
    close(ends[1]);

    char c = 0;
    while (Readable(output) && read(output, &c, 1) == 1 && c != '\n') readyLine += c;
    port = PortBehind(readyLine, "listening on ");
    filesPort = PortBehind(readyLine, ", files on ");
}

ServerProcess::~ServerProcess() {
    if (process > 0) {
        Signal(SIGTERM);
        EXPECT_EQ(Wait(), 0) << Log();
    }
    if (testing::Test::HasFailure()) std::fprintf(stderr, "log of the server:\n%s", Log().c_str());
    close(output);
}

void ServerProcess::Signal(int number) const { kill(process, number); }

int ServerProcess::Wait() { return ExitCode(std::exchange(process, -1)); }

std::string ServerProcess::Log() const {
    std::ostringstream text;
    text << std::ifstream(logFile).rdbuf();
    return text.str();
}

WireClient::WireClient(std::uint16_t port, const std::string& from, int receiveBuffer)
    : socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    if (receiveBuffer > 0) setsockopt(socket, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
    const auto address = [](const std::string& text, std::uint16_t number) {
        sockaddr_in in{};
        in.sin_family = AF_INET;
        in.sin_port = htons(number);
        inet_pton(AF_INET, text.c_str(), &in.sin_addr);
        return in;
    };
    const sockaddr_in here = address(from, 0);
    const sockaddr_in there = address("127.0.0.1", port);
    if (bind(socket, reinterpret_cast<const sockaddr*>(&here), sizeof here) != 0 ||
        connect(socket, reinterpret_cast<const sockaddr*>(&there), sizeof there) != 0)
        throw std::runtime_error("no connection to the server");
}

WireClient::~WireClient() { close(socket); }

void WireClient::Sends(std::string_view bytes) { EXPECT_TRUE(TriesToSend(bytes)); }

bool WireClient::TriesToSend(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

void WireClient::EndsSending() const { shutdown(socket, SHUT_WR); }

bool WireClient::ReadsMore() {
    std::array<char, 65'536> bytes{};
    if (!Readable(socket)) {
        ADD_FAILURE() << "nothing comes any more behind: " << buffer.substr(0, 1'000);
        return false;
    }
    const ssize_t size = recv(socket, bytes.data(), bytes.size(), 0);
    if (size > 0) buffer.append(bytes.data(), static_cast<std::size_t>(size));
    return size > 0;
}

std::string WireClient::ReadsUntil(std::string_view text) {
    std::size_t searched = 0;
    while (true) {
        const std::size_t at = buffer.find(text, searched);
        if (at != std::string::npos) {
            std::string read = buffer.substr(0, at + text.size());
            buffer.erase(0, at + text.size());
            return read;
        }
        searched = buffer.size() < text.size() ? 0 : buffer.size() - text.size();
        if (ReadsMore()) continue;
        ADD_FAILURE() << "\"" << text << "\" did not come, but: " << buffer.substr(0, 1'000);
        return std::exchange(buffer, {});
    }
}

std::string WireClient::ReadsSome() {
    if (buffer.empty()) ReadsMore();
    return std::exchange(buffer, {});
}

std::string WireClient::ReadsToEnd() {
    while (ReadsMore()) {
    }
    return std::exchange(buffer, {});
}

std::string WireClient::LogsOn(const std::string& name, const std::string& password) {
    Sends(client_message::Logon(name + ";temp;127.0.0.1", password));
    std::string read = ReadsUntil("22:");
    read += ReadsUntil("~");
    return read;
}

std::string WireClient::Enters(const std::string& name, const std::string& lobby) {
    Sends(client_message::EnterLobby(name + ";" + lobby + ";127.0.0.1", ""));
    return ReadsUntil("48:" + name + ";" + lobby + ";~");
}

} // namespace ombrin::server::test

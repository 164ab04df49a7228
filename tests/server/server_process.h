// The real server as a process of its own with a scratch home, and clients that are sockets.
#pragma once

#include "../support/scratch.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace ombrin::server::test {

class ServerProcess {
public:
    /// In `home`, on free ports unless an option names one; its configuration is written there when one is given. Waits
    /// for the line that says ready, or for the program's end.
    ServerProcess(const std::string& home, std::vector<std::string> options, std::string_view configuration = {});
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    void Signal(int number) const;
    /// Waits for the end; the exit code, or -1 when it was killed.
    int Wait();
    std::string Log() const;

    std::string readyLine; ///< empty when the program ended before it
    std::uint16_t port = 0;
    std::uint16_t filesPort = 0;

private:
    std::string logFile;
    pid_t process = -1;
    int output = -1;
};

class WireClient {
public:
    /// `from` is a loopback address; a small receive buffer fills soon.
    explicit WireClient(std::uint16_t port, const std::string& from = "127.0.0.1", int receiveBuffer = 0);
    ~WireClient();
    WireClient(const WireClient&) = delete;
    WireClient& operator=(const WireClient&) = delete;

    void Sends(std::string_view bytes);
    /// False when the connection broke on the way.
    bool TriesToSend(std::string_view bytes);
    void EndsSending() const;
    /// Everything up to this text; what was read so far, with a failure, when it does not come.
    std::string ReadsUntil(std::string_view text);
    /// What has come, waited for when that is nothing; empty at the end of the connection.
    std::string ReadsSome();
    /// Everything up to the server's end of the connection.
    std::string ReadsToEnd();
    std::string LogsOn(const std::string& name, const std::string& password = "pw");
    std::string Enters(const std::string& name, const std::string& lobby);

private:
    /// False at the end of the connection, or when nothing comes for a long time.
    bool ReadsMore();

    int socket;
    std::string buffer;
};

} // namespace ombrin::server::test

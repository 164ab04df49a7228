// Two thousand clients in one process, each of which says a line a second and reads what it is sent.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ombrin::bench {

class Load {
public:
    struct Plan {
        std::uint16_t port;
        std::size_t clients;
        std::size_t lobbySize;
        bool logOn; ///< false: say lines at once
    };
    struct Outcome {
        std::uint64_t linesSent = 0;
        std::uint64_t bytesRead = 0;
        std::vector<double> delays; ///< milliseconds from a line to its echo, of some of the clients, in order
    };

    explicit Load(const Plan& plan);
    ~Load();
    Load(const Load&) = delete;
    Load& operator=(const Load&) = delete;

    /// Until everybody is in his lobby.
    void LogOn();
    Outcome Talk(std::chrono::milliseconds time);

    static std::string Name(std::size_t client);
    static std::string Lobby(std::size_t number);
    static std::string LineIn(std::size_t client, std::size_t lobbySize);
    static std::string LineOut(std::size_t client);

private:
    using Moment = std::chrono::steady_clock::time_point;
    enum class State { LoggingOn, Entering, In };
    struct Client {
        int socket = -1;
        State state = State::LoggingOn;
        std::string tail; ///< before he is in
        std::string echo; ///< what begins his own line; empty when he does not look for it
        Moment said;
    };

    std::size_t Speaker(std::size_t turn) const;
    void Connect(std::size_t index);
    void Send(Client& client, const std::string& bytes) const;
    void ReadAll(std::chrono::milliseconds wait);
    void Read(std::size_t index);
    void Advance(std::size_t index);

    const Plan plan;
    int poll;
    std::vector<Client> clients;
    std::size_t in = 0;
    Outcome outcome;
};

} // namespace ombrin::bench

// Two thousand clients in one process, each of which says a line a second and reads what it is sent. In rooms some of
// them go out, look at the room and enter it again.
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
        std::size_t roomSize; ///< of which the first has opened the room; 0: they write to the lobby
        int movesPerSecond;   ///< out of a room, a look at it, and in again
        bool logOn;           ///< false: say lines at once
    };
    struct Outcome {
        std::uint64_t echoesDue = 0; ///< of those whose delays are measured
        std::uint64_t moves = 0;
        std::uint64_t bytesSent = 0;
        std::uint64_t bytesRead = 0;
        std::vector<double> delays; ///< milliseconds from a line to its echo, of some of the clients, in order
    };

    explicit Load(const Plan& plan);
    ~Load();
    Load(const Load&) = delete;
    Load& operator=(const Load&) = delete;

    /// Until everybody is in his lobby, and in his room.
    void LogOn();
    Outcome Talk(std::chrono::milliseconds time);

    static std::string Name(std::size_t client);
    static std::string Lobby(std::size_t number);
    static std::string Room(std::size_t number);

private:
    using Moment = std::chrono::steady_clock::time_point;
    enum class State { LoggingOn, Entering, Asking, In };
    struct Client {
        int socket = -1;
        State state = State::LoggingOn;
        std::string tail; ///< before he is in
        std::string echo; ///< what begins his own line; empty when he does not look for it
        bool out = false; ///< of his room, for a moment
        Moment said;
    };

    std::string Record(std::size_t index) const;
    std::string RoomOf(std::size_t index) const { return Room(index / plan.roomSize); }
    bool OpensRoom(std::size_t index) const { return index % plan.roomSize == 0; }
    void FillRooms();
    void AwaitAnswers();
    void Say(std::size_t index);
    void Move();
    std::size_t Speaker(std::size_t turn) const;
    std::size_t Mover(std::size_t turn) const;
    void Connect(std::size_t index);
    void Send(Client& client, const std::string& bytes);
    void ReadAll(std::chrono::milliseconds wait);
    void Read(std::size_t index);
    void Advance(std::size_t index);

    const Plan plan;
    int poll;
    std::vector<Client> clients;
    std::size_t in = 0;
    std::size_t moves = 0; ///< begun
    Outcome outcome;
};

} // namespace ombrin::bench

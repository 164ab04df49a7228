// 2,000 clients are logged on in lobbies of 200. In the one evening each says a line a second to his lobby, 400,000
// lines a second out. In the other they sit in rooms of ten, each says a line a second to his room, and a hundred
// times a second somebody goes out of his room, looks at who is in it and enters it again, which is told to all of his
// lobby. Beside each a bare relay on Asio moves the same bytes.

#include "load.h"
#include "process.h"
#include "relay.h"
#include "session/wire/server_message.h"

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace ombrin::bench;
using namespace std::chrono_literals;

constexpr std::size_t kClients = 2'000;
constexpr std::size_t kLobbySize = 200;
constexpr std::size_t kRoomSize = 10;
constexpr int kMovesPerSecond = 100;
constexpr auto kWarmUp = 2s;
constexpr auto kMeasured = 10s;
/// The server pauses for 10 us a connection after a round of writing.
constexpr int kMillisecondsApart = 20;
/// How far above the relay's the server's processor time may be.
constexpr double kAsked = 2.0;
constexpr double kLeastShare = 0.99;

struct Evening {
    const char* name;
    std::size_t roomSize; ///< 0: all write to their lobbies
};

struct Measured {
    double processor;   ///< seconds a second
    double bytesOut;    ///< a second
    double memory;      ///< KiB a client
    Load::Outcome talk; ///< of the clients
};

Measured Measure(const Process& process, std::size_t roomSize, bool logOn) {
    const double memoryBefore = process.MemoryKiB();
    Load load({process.port, kClients, kLobbySize, roomSize, roomSize == 0 ? 0 : kMovesPerSecond, logOn});
    load.LogOn();
    load.Talk(kWarmUp);
    const double before = process.ProcessorTime();
    Load::Outcome talk = load.Talk(kMeasured);
    const double seconds = std::chrono::duration<double>(kMeasured).count();
    return {(process.ProcessorTime() - before) / seconds, static_cast<double>(talk.bytesRead) / seconds,
            (process.MemoryKiB() - memoryBefore) / kClients, std::move(talk)};
}

/// What the relay has to do so that it moves the bytes that the server moved.
RelayTask SameBytes(const Load::Outcome& talk, std::size_t roomSize) {
    const auto in = static_cast<double>(talk.bytesSent);
    const std::size_t change =
        ombrin::server_message::StatusOfUsers(
            std::vector<ombrin::server_message::StatusChange>{{"1", Load::Name(0), Load::Room(0), "127.0.0.1"}})
            .size();
    const double toLobby = static_cast<double>(2 * talk.moves * change); // to each of a lobby, summed over lobbies
    const std::size_t room = roomSize == 0 ? kLobbySize : roomSize;
    const double toRoom = (static_cast<double>(talk.bytesRead) - toLobby * kLobbySize) / static_cast<double>(room);
    return {room, kLobbySize, toRoom / in, toLobby / in, kMillisecondsApart};
}

std::vector<std::string> RelayCommand(const char* self, const RelayTask& task) {
    return {self,
            "--relay",
            std::to_string(task.room),
            std::to_string(task.lobby),
            std::to_string(task.toRoom),
            std::to_string(task.toLobby)};
}

std::string Configuration() {
    std::string text = "{\"lobbies\": [";
    for (std::size_t i = 0; i < kClients / kLobbySize; ++i) text += (i == 0 ? "\"" : ",\"") + Load::Lobby(i) + "\"";
    // All come from one address, and logging on is not what is measured.
    return text + R"(], "limits": {"connectionsPerAddress": 5000, "passwordMemoryKiB": 8, "passwordPasses": 1}})";
}

void PrintDetail(const char* name, const Measured& measured) {
    constexpr double kMebibyte = 1'048'576;
    std::printf("  %s: %.1f MiB/s out, %.1f KiB a client", name, measured.bytesOut / kMebibyte, measured.memory);
    const std::vector<double>& delays = measured.talk.delays;
    if (!delays.empty())
        std::printf("; a line is back after %.1f ms, 99 of 100 within %.1f ms", delays[delays.size() / 2],
                    delays[delays.size() * 99 / 100]);
    std::printf("\n");
}

bool Run(const char* self, const Evening& evening) {
    const ScratchHome home(Configuration());
    const Measured ours = [&] {
        const Process server({ARDVELLE_SERVER, "--port", "0", "--home", home.path, "--open-accounts"});
        return Measure(server, evening.roomSize, true);
    }();
    const Process relay(RelayCommand(self, SameBytes(ours.talk, evening.roomSize)));
    const Measured bare = Measure(relay, evening.roomSize, false);

    const double ratio = ours.processor / bare.processor;
    const double back = static_cast<double>(ours.talk.delays.size()) / static_cast<double>(ours.talk.echoesDue);
    const double sameBytes = bare.bytesOut / ours.bytesOut;
    std::printf("%s  %.2f s/s  %.2f s/s  %.2f  %.2f\n", evening.name, ours.processor, bare.processor, ratio, kAsked);
    std::printf("  %.1f %% of the lines came back, the relay moved %.1f %% of the bytes\n", 100 * back,
                100 * sameBytes);
    PrintDetail("ours", ours);
    PrintDetail("bare relay on Asio", bare);
    return ratio <= kAsked && back >= kLeastShare && sameBytes >= kLeastShare;
}

} // namespace

int main(int count, char** arguments) {
    try {
        constexpr int kRelayArguments = 6;
        if (count == kRelayArguments && std::string(arguments[1]) == "--relay")
            RunRelay({std::stoul(arguments[2]), std::stoul(arguments[3]), std::stod(arguments[4]),
                      std::stod(arguments[5]), kMillisecondsApart});
        RaiseDescriptorLimit();
        const Evening evenings[] = {{"server, 2000 clients, a lobby line/s each", 0},
                                    {"server, 200 rooms, chat, moves, previews", kRoomSize}};
        bool kept = true;
        for (const Evening& evening : evenings) kept = Run(arguments[0], evening) && kept;
        return kept ? 0 : 1;
    } catch (const std::exception& problem) {
        std::cerr << "bench-server: " << problem.what() << "\n";
        return 1;
    }
}

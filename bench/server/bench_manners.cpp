// Ten clients chat, first alone and then beside one that misbehaves: how long does a line of theirs take to each of
// them? Alone and beside take turns, so that both have the same machine.

#include "manners_client.h"
#include "process.h"
#include "session/wire/client_message.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <poll.h>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

using namespace ombrin;
using namespace ombrin::bench;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kNeighbours = 10;
constexpr auto kBetweenLines = 60ms; ///< of all ten: below what each of them may write
constexpr int kRounds = 3;
constexpr auto kRound = 2s; ///< alone, and as long beside
/// How many times as long a line may take beside one that misbehaves.
constexpr double kAsked = 2.0;

/// Ten that write in turns and all listen.
class Neighbours {
public:
    explicit Neighbours(std::uint16_t port) {
        for (std::size_t i = 0; i < kNeighbours; ++i)
            clients.push_back(std::make_unique<MannersClient>(port, "n" + std::to_string(i)));
    }

    /// Adds to the delays, in milliseconds, each line's to each of the ten.
    void Chat(std::vector<double>& delays) {
        for (const Clock::time_point end = Clock::now() + kRound; Clock::now() < end;) {
            const Clock::time_point said = Clock::now();
            MannersClient& speaker = *clients[line++ % kNeighbours];
            const std::string mark = "1:" + speaker.Name() + ":line " + std::to_string(line) + ":;~";
            speaker.Send(client_message::LobbyLine(speaker.Record(), "line " + std::to_string(line)));
            for (const double delay : Hear(mark, said)) delays.push_back(delay);
            std::this_thread::sleep_until(said + kBetweenLines);
        }
    }

private:
    std::vector<double> Hear(const std::string& mark, Clock::time_point said) {
        std::vector<double> delays;
        std::vector<std::string> heard(kNeighbours);
        std::vector<pollfd> waits;
        for (const auto& client : clients) waits.push_back({client->Descriptor(), POLLIN, 0});
        while (delays.size() < kNeighbours) {
            constexpr int kPatience = 10'000; // milliseconds
            if (poll(waits.data(), waits.size(), kPatience) <= 0) throw std::runtime_error("a line does not arrive");
            for (std::size_t i = 0; i < kNeighbours; ++i) {
                if (waits[i].revents == 0) continue;
                heard[i] += clients[i]->Read();
                if (clients[i]->Gone()) throw std::runtime_error("a neighbour was thrown out");
                if (heard[i].find(mark) == std::string::npos) continue;
                delays.push_back(std::chrono::duration<double, std::milli>(Clock::now() - said).count());
                waits[i].fd = -1;
            }
        }
        return delays;
    }

    std::vector<std::unique_ptr<MannersClient>> clients;
    std::size_t line = 0;
};

struct Misbehaviour {
    const char* name;
    std::string (*bytes)(const std::string& record); ///< sent again and again
    bool reads;
    bool slow;              ///< a byte a second, else as much as the server takes
    std::size_t ofThem = 1; ///< connections
    bool onFilesPort = false;
};

std::string Repeat(const std::string& text, int times) {
    std::string repeated;
    for (int i = 0; i < times; ++i) repeated += text;
    return repeated;
}

std::string Lines(const std::string& record) { return Repeat(client_message::LobbyLine(record, "me, me, me"), 500); }
std::string Requests(const std::string& record) {
    return Repeat(client_message::BuddyList("x") + client_message::CreateRoom(record, "R", "4", "0", "", "N") +
                      client_message::PreviewRoom(record, "R") + client_message::DestroyRoom(record, "R") +
                      client_message::AddBuddy("x", "y") + client_message::LeaveLobby(record) +
                      client_message::EnterLobby(record, ""),
                  100);
}
std::string Halves(const std::string&) { return std::string(1U << 16U, 'x'); }
std::string AByte(const std::string& record) { return client_message::LobbyLine(record, "slowly"); }

std::string Nothing(const std::string&) { return ""; }
std::string Beginnings(const std::string&) { return Repeat(client_message::RequestFile("big.bin"), 1'000); }
std::string WholeFiles(const std::string&) {
    return client_message::RequestFile("big.bin") + Repeat(client_message::FileReceived(), 100);
}

constexpr Misbehaviour kMisbehaviours[] = {
    {"ten chat beside a flood of lines", Lines, true, false},
    {"ten chat beside a flood of requests", Requests, true, false},
    {"ten chat beside half messages", Halves, true, false},
    {"ten chat beside one that never reads", Requests, false, false},
    {"ten chat beside a byte a second", AByte, true, true},
    {"ten chat beside 200 idle file connections", Nothing, true, false, 200, true},
    {"ten chat beside 200 that read no files", WholeFiles, false, false, 200, true},
    {"ten chat beside 20 that begin files only", Beginnings, true, false, 20, true},
    {"ten chat beside 20 that fetch files", WholeFiles, true, false, 20, true},
    {"ten chat beside half requests for files", Halves, true, false, 20, true},
};

/// Misbehaves on a thread of its own while it lives; thrown out, it comes again.
class Nuisance {
public:
    Nuisance(const Process& server, const Misbehaviour& how)
        : server(server), how(how), crowd(how.ofThem), thread([this] { Run(); }) {}
    ~Nuisance() {
        stop = true;
        thread.join();
    }
    Nuisance(const Nuisance&) = delete;
    Nuisance& operator=(const Nuisance&) = delete;

private:
    struct One {
        std::unique_ptr<MannersClient> client; ///< none: it comes again
        std::string bytes;
        std::size_t at = 0; ///< where in the bytes it has come to
    };

    void Run() {
        while (!stop) {
            for (One& one : crowd)
                if (one.client == nullptr || one.client->Gone()) Come(one);
            Step();
        }
    }
    void Come(One& one) {
        try {
            one.client.reset();
            one.client = how.onFilesPort ? std::make_unique<MannersClient>(server.filesPort)
                                         : std::make_unique<MannersClient>(server.port, "nuisance");
            one.bytes = how.bytes(one.client->Record());
            one.at = 0;
        } catch (const std::runtime_error&) {
            std::this_thread::sleep_for(10ms); // its old connection still has the name
        }
    }
    /// Whatever each can do at the moment.
    void Step() {
        constexpr int kStep = 20; // milliseconds; it looks whether to stop
        waits.clear();
        for (const One& one : crowd) {
            const bool writes = !how.slow && !one.bytes.empty();
            waits.push_back({one.client ? one.client->Descriptor() : -1,
                             static_cast<short>((how.reads ? POLLIN : 0) | (writes ? POLLOUT : 0)), 0});
        }
        poll(waits.data(), waits.size(), kStep);
        for (std::size_t i = 0; i < crowd.size(); ++i)
            if (crowd[i].client) Act(crowd[i], waits[i].revents);
    }
    void Act(One& one, short ready) {
        // One that never reads learns of the end of its connection by this alone.
        if ((ready & (POLLIN | POLLHUP | POLLERR)) != 0) one.client->Read();
        const Clock::time_point now = Clock::now();
        if (how.slow && now >= nextByte) {
            one.at += one.client->Send(std::string_view(one.bytes).substr(one.at, 1));
            nextByte = now + 1s;
        }
        if ((ready & POLLOUT) != 0) one.at += one.client->Send(std::string_view(one.bytes).substr(one.at));
        if (one.at == one.bytes.size()) one.at = 0;
    }

    const Process& server;
    const Misbehaviour& how;
    std::vector<One> crowd;
    std::vector<pollfd> waits;
    std::atomic<bool> stop = false;
    Clock::time_point nextByte;
    std::thread thread;
};

double Quantile(std::vector<double>& delays, std::size_t percent) {
    std::sort(delays.begin(), delays.end());
    return delays[delays.size() * percent / 100];
}

bool Run(const Misbehaviour& how) {
    const ScratchHome home(R"({"lobbies": ["Go"], "files": [{"name": "big.bin", "directory": 1}],
                               "limits": {"passwordMemoryKiB": 8, "passwordPasses": 1}})");
    std::filesystem::create_directory(home.path + "/files");
    constexpr std::size_t kFile = std::size_t{16} << 20U;
    std::ofstream(home.path + "/files/big.bin") << ";FileVersion=1.00\n" << std::string(kFile, 'x');
    const Process server({ARDVELLE_SERVER, "--port", "0", "--home", home.path, "--open-accounts"});
    Neighbours neighbours(server.port);
    std::vector<double> alone;
    std::vector<double> beside;
    for (int round = 0; round < kRounds; ++round) {
        neighbours.Chat(alone);
        const Nuisance nuisance(server, how);
        neighbours.Chat(beside);
    }
    constexpr std::size_t kHalf = 50;
    constexpr std::size_t kMost = 95;
    const double ratio = Quantile(beside, kHalf) / Quantile(alone, kHalf);
    std::printf("%s  %.2f ms  %.2f ms  %.2f  %.2f\n", how.name, Quantile(beside, kHalf), Quantile(alone, kHalf), ratio,
                kAsked);
    std::printf("  95 of 100 lines within %.2f ms, alone %.2f ms\n", Quantile(beside, kMost), Quantile(alone, kMost));
    return ratio <= kAsked;
}

} // namespace

int main() {
    try {
        bool kept = true;
        for (const Misbehaviour& how : kMisbehaviours) kept = Run(how) && kept;
        return kept ? 0 : 1;
    } catch (const std::exception& problem) {
        std::cerr << "bench-manners: " << problem.what() << "\n";
        return 1;
    }
}

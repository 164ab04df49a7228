// 2,000 clients are logged on in lobbies of 200, and each says a line a second, which goes to all of its lobby:
// 400,000 lines a second out. Beside it a bare relay on Asio moves the same bytes.

#include "load.h"
#include "relay.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

using namespace ombrin::bench;
using namespace std::chrono_literals;

constexpr std::size_t kClients = 2'000;
constexpr std::size_t kLobbySize = 200;
constexpr auto kWarmUp = 2s;
constexpr auto kMeasured = 10s;
/// The server pauses for 10 us a connection after a round of writing.
constexpr int kMillisecondsApart = 20;
/// How far above the relay's the server's processor time may be.
constexpr double kAsked = 2.0;

/// A program on the other end of the loopback, measured from outside.
class Process {
public:
    explicit Process(std::vector<std::string> command) {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
        std::vector<char*> arguments;
        arguments.reserve(command.size() + 1);
        for (std::string& part : command) arguments.push_back(part.data());
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t actions{};
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        const int result = posix_spawn(&id, arguments[0], &actions, nullptr, arguments.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        if (result != 0) throw std::runtime_error("cannot start " + command[0]);
        std::string line;
        for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';) line += c;
        close(ends[0]);
        const std::size_t end = line.find(',');
        if (end == std::string::npos) throw std::runtime_error(command[0] + " does not get ready");
        port = static_cast<std::uint16_t>(std::stoi(line.substr(line.rfind(':', end) + 1)));
    }
    ~Process() {
        kill(id, SIGTERM);
        waitpid(id, nullptr, 0);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// Seconds of processor time so far, of all threads. Not from the usual count of ticks: a program that wakes by
    /// timers and works for less than a tick hides from it.
    double ProcessorTime() const {
        double nanoseconds = 0;
        for (const auto& thread : std::filesystem::directory_iterator("/proc/" + std::to_string(id) + "/task")) {
            double running = 0;
            std::ifstream(thread.path() / "schedstat") >> running;
            nanoseconds += running;
        }
        return nanoseconds / 1e9;
    }
    double MemoryKiB() const {
        std::istringstream fields(Text("statm"));
        double total = 0;
        double resident = 0;
        fields >> total >> resident;
        return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
    }

    std::uint16_t port = 0;

private:
    std::string Text(const char* file) const {
        std::ostringstream text;
        text << std::ifstream("/proc/" + std::to_string(id) + "/" + file).rdbuf();
        return text.str();
    }

    pid_t id = -1;
};

struct Measured {
    double processor;   ///< seconds a second
    double bytesOut;    ///< a second
    double share;       ///< of the lines that were due
    double memory;      ///< KiB a client
    Load::Outcome talk; ///< of the clients
};

Measured Measure(const Process& process, bool logOn) {
    const double memoryBefore = process.MemoryKiB();
    Load load({process.port, kClients, kLobbySize, logOn});
    load.LogOn();
    load.Talk(kWarmUp);
    const double before = process.ProcessorTime();
    Load::Outcome talk = load.Talk(kMeasured);
    const double seconds = std::chrono::duration<double>(kMeasured).count();
    const auto due = static_cast<double>(talk.linesSent * kLobbySize * Load::LineOut(0).size());
    return {(process.ProcessorTime() - before) / seconds, static_cast<double>(talk.bytesRead) / seconds,
            static_cast<double>(talk.bytesRead) / due, (process.MemoryKiB() - memoryBefore) / kClients,
            std::move(talk)};
}

class ScratchHome {
public:
    ScratchHome() {
        path = (std::filesystem::temp_directory_path() / "ardvelle-bench-XXXXXX").string();
        if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no scratch folder");
        std::ofstream file(path + "/server.json");
        file << "{\"lobbies\": [";
        for (std::size_t i = 0; i < kClients / kLobbySize; ++i)
            file << (i == 0 ? "" : ",") << '"' << Load::Lobby(i) << '"';
        // All come from one address, and logging on is not what is measured.
        file << R"(], "limits": {"connectionsPerAddress": 5000, "passwordMemoryKiB": 8, "passwordPasses": 1}})";
    }
    ~ScratchHome() { std::filesystem::remove_all(path); }
    ScratchHome(const ScratchHome&) = delete;
    ScratchHome& operator=(const ScratchHome&) = delete;
    std::string path;
};

bool Run(const char* self) {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);

    const ScratchHome home;
    const auto server = std::make_unique<Process>(
        std::vector<std::string>{ARDVELLE_SERVER, "--port", "0", "--home", home.path, "--open-accounts"});
    const Measured ours = Measure(*server, true);
    const Process relay({self, "--relay"});
    const Measured bare = Measure(relay, false);

    constexpr double kMebibyte = 1'048'576;
    const double ratio = ours.processor / bare.processor;
    const bool kept = ratio <= kAsked && ours.share > 0.99;
    std::printf("server, 2000 clients, a lobby line/s each  %.2f s/s  %.2f s/s  %.2f  %.2f\n", ours.processor,
                bare.processor, ratio, kAsked);
    const auto detail = [](const char* name, const Measured& measured) {
        std::printf("  %s: %.1f MiB/s out, %.1f %% of what was due, %.1f KiB a client", name,
                    measured.bytesOut / kMebibyte, 100 * measured.share, measured.memory);
        const std::vector<double>& delays = measured.talk.delays;
        if (!delays.empty())
            std::printf("; a line is back after %.1f ms, 99 of 100 within %.1f ms", delays[delays.size() / 2],
                        delays[delays.size() * 99 / 100]);
        std::printf("\n");
    };
    detail("ours", ours);
    detail("bare relay on Asio", bare);
    return kept;
}

} // namespace

int main(int count, char** arguments) {
    try {
        if (count > 1 && std::string(arguments[1]) == "--relay")
            RunRelay({kLobbySize, Load::LineIn(0, kLobbySize).size(), Load::LineOut(0).size(), kMillisecondsApart});
        return Run(arguments[0]) ? 0 : 1;
    } catch (const std::exception& problem) {
        std::cerr << "bench-server: " << problem.what() << "\n";
        return 1;
    }
}

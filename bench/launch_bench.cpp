// The search for a game through the disks beside find(1), and the way from the server's word to the started process.
//
// One line a case: name, ours, lower bound, ratio, the ratio that is asked. Ends with 1 when a ratio is above it.
#include "foundation/text.h"
#include "platform/posix/posix_disks.h"
#include "platform/posix/posix_processes.h"
#include "support/recorded_world.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>

namespace ombrin::bench {

namespace {

namespace fs = std::filesystem;
using Steady = std::chrono::steady_clock;

double Milliseconds(Steady::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

bool Line(const char* name, double ours, double bound, const char* unit, double asked) {
    std::printf("%s  %.3f %s  %.3f %s  %.2f  %.2f\n", name, ours, unit, bound, unit, ours / bound, asked);
    return ours / bound <= asked;
}

/// Presses the first way on of whatever comes up.
class Agreeing : public Waiter {
public:
    void RunUntil(const bool& ended) override {
        while (!ended) {
            UserInput& input = client->Input();
            if (!input.PressButton(BoxResult::Yes) || !input.PressButton(BoxResult::Ok)) continue;
            input.Click(client->Forms().PauseAV.ResumeButton);
        }
    }
    void Block(ombrin::Milliseconds) override {}
    void Breathe() override {}
    GameLobby* client = nullptr;
};

/// A client in a lobby, whose disks and processes are real.
struct Player {
    Agreeing waiter;
    test::RecordedWorld world;
    const WinePrefix prefix{[] { return std::string(); }};
    PosixDisks real{CodePage::Usual(), prefix};
    recording::RecordingDisks disks{&real};
    PosixProcesses processes{CodePage::Usual(), waiter, [] { return std::string("wine"); }, prefix};
    GameLobby client;

    Player() : client(Real()) {
        waiter.client = &client;
        client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", "English");
        client.UserControl_Show("ann;Go;127.0.0.1;7777");
        world.network.Named("Winsock").Accept();
        Sends("0:ann;1;~");
    }
    Platform Real() {
        const Platform recorded = world.ForClient(waiter);
        return {recorded.network,
                recorded.alarms,
                recorded.clock,
                recorded.files,
                recorded.localFiles,
                recorded.sound,
                recorded.clipboard,
                recorded.pings,
                recorded.notifier,
                recorded.browser,
                recorded.pictures,
                processes,
                recorded.components,
                recorded.integrity,
                recorded.registry,
                recorded.directPlay,
                disks,
                recorded.opener,
                recorded.measure,
                recorded.waiter,
                recorded.holdEvents,
                recorded.places};
    }
    void Sends(const std::string& data) { world.network.Named("Winsock").Sends(data); }
};

long PeakMemory() { // KiB
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// 100,000 directories in three levels, none of which holds the game.
bool Search(const fs::path& scratch) {
    const fs::path root = scratch / "disk";
    for (int a = 0; a < 10; ++a)
        for (int b = 0; b < 100; ++b)
            for (int c = 0; c < 100; ++c)
                fs::create_directories(root / ("top" + std::to_string(a)) / ("middle" + std::to_string(b)) /
                                       ("leaf" + std::to_string(c)));
    Player player;
    player.disks.roots = {root.string() + "/"};
    const std::string find = Join("find ", root.string(), " -iname nosuch.exe > /dev/null");
    std::vector<double> ours, bound;
    const long before = PeakMemory();
    for (int run = 0; run < 5; ++run) {
        auto start = Steady::now();
        if (std::system(find.c_str()) != 0) std::abort();
        bound.push_back(Milliseconds(Steady::now() - start));
        start = Steady::now();
        player.Sends("40:Go;nosuch.exe;~");
        ours.push_back(Milliseconds(Steady::now() - start));
    }
    if (player.world.LogText().find("setting auto-start for DIP games") == std::string::npos) std::abort();
    const bool quick = Line("a search through 100,000 directories, find", Median(ours), Median(bound), "ms", 2);
    constexpr double kLimit = 16; // MiB, for the paths that are still to be searched
    return Line("memory that five searches add at most", static_cast<double>(PeakMemory() - before) / 1024, kLimit,
                "MiB", 1) &&
           quick;
}

/// From the launch's arrival until the game is there to write its first file; beside starting it alone.
bool Launch(const fs::path& scratch) {
    const fs::path game = scratch / "game.sh", mark = scratch / "mark";
    std::ofstream(game) << "#!/bin/sh\n: > " << mark.string() << "\n";
    fs::permissions(game, fs::perms::owner_all);
    const auto untilMarked = [&](const auto& start) {
        fs::remove(mark);
        const auto begun = Steady::now();
        start();
        while (!fs::exists(mark)) {
        }
        return Milliseconds(Steady::now() - begun);
    };
    Player player;
    player.client.Store().SaveSetting("Games", "Go", game.string());
    player.Sends("5:ann;10.0.0.5;N;~"); // the creator's side waits for nobody
    std::vector<double> ours, bound;
    for (int run = 0; run < 25; ++run) {
        bound.push_back(untilMarked([&] { player.processes.Shell({game.string(), game.string().size()}); }));
        ours.push_back(untilMarked([&] { player.Sends("12:10.0.0.5;~"); }));
    }
    constexpr double kAsked = 20; // ms
    Line("from the launch's arrival to a running game, alone", Median(ours), Median(bound), "ms", 2);
    return Line("the same, the limit", Median(ours), kAsked, "ms", 1);
}

} // namespace

} // namespace ombrin::bench

int main() {
    using namespace ombrin::bench;
    std::string name = (fs::temp_directory_path() / "bench-launch-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) return 2;
    bool good = Search(name);
    good = Launch(name) && good;
    fs::remove_all(name);
    return good ? 0 : 1;
}

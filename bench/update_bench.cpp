// A download of 64 MiB over loopback, through all of the client's routines and onto the disk, beside opening, writing,
// flushing and closing the same buffers without a network; and the memory that it takes, beside that for 8 MiB.
//
// bench-update [--buffer BYTES] [--sweep]: as large as the server's buffers are, or sizes from 16 KiB to 1 MiB one
// after the other. One line a case: name, ours, lower bound, ratio, the ratio that is asked. Ends with 1 when a ratio
// is above it.
#include "file_server.h"
#include "foundation/text.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/posix_local_files.h"
#include "platform/posix/posix_network.h"
#include "support/recorded_world.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>
#include <sys/wait.h>

namespace ombrin::bench {

namespace {

namespace fs = std::filesystem;
using Steady = std::chrono::steady_clock;

double MillisecondsSince(Steady::time_point start) {
    return std::chrono::duration<double, std::milli>(Steady::now() - start).count();
}

/// What one process has found out about itself.
struct Measured {
    double milliseconds = 0;
    long peakKiB = 0, flushes = 0;
};

/// Runs the body in a process of its own, so that its memory is its own.
template <class Body>
Measured InAProcess(const Body& body) {
    int ends[2];
    Check(pipe(ends) == 0, "no pipe");
    const pid_t child = Fork();
    if (child == 0) {
        Measured measured = body();
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        measured.peakKiB = usage.ru_maxrss;
        std::_Exit(write(ends[1], &measured, sizeof measured) == sizeof measured ? 0 : 1);
    }
    Measured measured;
    close(ends[1]);
    Check(read(ends[0], &measured, sizeof measured) == sizeof measured, "a process has failed");
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return measured;
}

/// The lobby's server is played, the file server is real.
class LobbyPlayed : public Network {
public:
    LobbyPlayed(Network& played, EventLoop& loop) : played(played), real(loop) {}
    std::unique_ptr<Socket> MakeSocket(const std::string& name, Socket::Events events) override {
        return (name == "FileTransferSocket" ? static_cast<Network&>(real) : played).MakeSocket(name, events);
    }

private:
    Network& played;
    PosixNetwork real;
};

class CountingFiles : public PosixLocalFiles {
public:
    using PosixLocalFiles::PosixLocalFiles;
    bool Write(const std::string& path, std::string_view bytes, WriteMode mode) override {
        ++writes;
        return PosixLocalFiles::Write(path, bytes, mode);
    }
    long writes = 0;
};

/// A client in a lobby whose user says yes to everything.
class Downloading : private Waiter {
public:
    explicit Downloading(const fs::path& home) {
        client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", "English");
        client.Store().SaveSetting("Settings", "ClientDirectory", home.string());
        client.CloseClient = [this] { over = true; };
        client.UserControl_Show("ann;Go;127.0.0.1;7777");
        world.network.Named("Winsock").Accept();
    }
    Measured Run(int port, std::size_t size) {
        // One of the client's own files, which are left for the patcher: the transfer alone is measured.
        const std::string list = Join("OmbrinExe.exe;", std::to_string(size), ";1;3.34;");
        world.network.Named("Winsock").Sends(Join("50:127.0.0.1;", std::to_string(port), ";", list, "~"));
        RunUntil(over);
        return {milliseconds, 0, files.writes};
    }

private:
    void RunUntil(const bool& ended) override {
        constexpr ombrin::Milliseconds kLook{1000};
        while (!ended) {
            if (!world.loop.DispatchOne()) world.loop.Wait(-1, kLook);
            AnswerBox();
            if (!client.Forms().DownloadProgress.OK.Visible()) continue;
            milliseconds = MillisecondsSince(begun);
            client.Input().Click(client.Forms().DownloadProgress.OK);
        }
    }
    void AnswerBox() {
        const auto* box = dynamic_cast<const MessageBoxForm*>(client.Stack().Top());
        if (box == nullptr) return;
        Check(box->Text() == text::kDownloadRequired.english, box->Text().c_str());
        begun = Steady::now();
        client.Input().PressButton(BoxResult::Ok);
    }
    void Block(ombrin::Milliseconds) override {}
    void Breathe() override {}

    test::RecordedWorld world;
    LobbyPlayed network{world.network, world.loop};
    CountingFiles files{CodePage::Usual()};
    GameLobby client{world.ForClient(*this, &network, &files)};
    Steady::time_point begun;
    double milliseconds = 0;
    bool over = false;
};

void CheckFile(const fs::path& path, std::size_t size) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes(kMiB, '\0');
    std::size_t offset = 0;
    for (; file.read(bytes.data(), static_cast<std::streamsize>(kMiB)) || file.gcount() > 0;
         offset += static_cast<std::size_t>(file.gcount()))
        Check(std::string_view(bytes).substr(0, static_cast<std::size_t>(file.gcount())) ==
                  Content(offset, static_cast<std::size_t>(file.gcount())),
              "other bytes have arrived");
    Check(offset == size, "the file has another length");
}

Measured Download(const fs::path& home, std::size_t buffer, std::size_t size) {
    const fs::path folder = home / "Client";
    fs::create_directories(folder);
    std::ofstream(folder / "OmbrinExe.exe") << ";FileVersion=3.33\n";
    const Server server(buffer, size);
    const Measured measured = InAProcess([&] { return Downloading(home).Run(server.port, size); });
    CheckFile(folder / "OmbrinExe7.exe", size);
    fs::remove_all(folder);
    return measured;
}

Measured JustWrite(const fs::path& home, std::size_t buffer, std::size_t size) {
    const std::string path = home / "bare";
    const Measured measured = InAProcess([&] {
        const std::string_view bytes = Content(0, buffer);
        Measured bare;
        const auto begun = Steady::now();
        for (std::size_t offset = 0; offset < size; offset += buffer, ++bare.flushes) {
            const int place = offset == 0 ? O_TRUNC : O_APPEND;
            const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | place, 0644));
            const std::size_t count = std::min(buffer, size - offset);
            Check(write(file.Number(), bytes.data(), count) == static_cast<ssize_t>(count), "the disk takes no bytes");
            Check(fsync(file.Number()) == 0, "the disk cannot be flushed");
        }
        bare.milliseconds = MillisecondsSince(begun);
        return bare;
    });
    fs::remove(path);
    return measured;
}

Measured Median(std::vector<Measured> runs) {
    std::sort(runs.begin(), runs.end(), [](const auto& a, const auto& b) { return a.milliseconds < b.milliseconds; });
    return runs[runs.size() / 2];
}

bool Line(const std::string& name, double ours, double bound, const char* unit, double asked) {
    std::printf("%s  %.1f %s  %.1f %s  %.2f  %.2f\n", name.c_str(), ours, unit, bound, unit, ours / bound, asked);
    std::fflush(stdout);
    return ours / bound <= asked;
}

bool Compare(const fs::path& home, std::size_t buffer) {
    constexpr std::size_t kLarge = 64 * kMiB, kSmall = 8 * kMiB;
    constexpr int kRuns = 5;
    std::vector<Measured> ours, bare;
    for (int run = 0; run < kRuns; ++run) { // side by side, as a disk has its moods
        bare.push_back(JustWrite(home, buffer, kLarge));
        ours.push_back(Download(home, buffer, kLarge));
    }
    const Measured large = Median(ours), bound = Median(bare), small = Download(home, buffer, kSmall);
    const std::string buffers = Join(" in buffers of ", std::to_string(buffer / kKiB), " KiB");
    const bool quick = Line("64 MiB" + buffers, large.milliseconds, bound.milliseconds, "ms", 2);
    std::printf("  flushed %ld times, the bare writing %ld times\n", large.flushes, bound.flushes);
    return Line("memory for 64 MiB, for 8 MiB", static_cast<double>(large.peakKiB), static_cast<double>(small.peakKiB),
                "KiB", 1.1) &&
           quick;
}

bool Run(const fs::path& home, int count, char** arguments) {
    std::size_t buffer = 256 * kKiB;
    bool sweep = false;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--sweep")
            sweep = true;
        else if (argument == "--buffer" && i + 1 < count)
            buffer = static_cast<std::size_t>(std::atol(arguments[++i]));
        else
            Check(false, "usage: bench-update [--buffer BYTES] [--sweep]");
    }
    Check(buffer > 0 && buffer <= kMiB, "a buffer has 1 byte to 1 MiB");
    if (!sweep) return Compare(home, buffer);
    bool good = true;
    for (buffer = 16 * kKiB; buffer <= kMiB; buffer *= 2) good = Compare(home, buffer) && good;
    return good;
}

} // namespace

} // namespace ombrin::bench

int main(int count, char** arguments) {
    using namespace ombrin::bench;
    std::string name = (fs::temp_directory_path() / "bench-update-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) return 2;
    const bool good = Run(name, count, arguments);
    fs::remove_all(name);
    return good ? 0 : 1;
}

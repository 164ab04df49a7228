// Sounds by the players of the machine, which are played by scripts here.
#include "platform/posix/posix_desktop.h"

#include "../support/scratch.h"
#include "platform/posix/posix_files.h"

#include <fstream>
#include <gtest/gtest.h>
#include <thread>

namespace ombrin {
namespace {

struct RealWait : Waiter {
    void RunUntil(const bool&) override {}
    void Block(Milliseconds time) override { std::this_thread::sleep_for(time); }
    void Breathe() override {}
};

/// With one player on the PATH, which writes down what it is started with.
struct Heard : testing::Test {
    Scratch scratch;
    std::string path = std::getenv("PATH");
    PosixFiles files{CodePage::Usual()};
    Settings settings{files, scratch / "settings.ini"};
    RealWait waiter;
    PosixSound sound{{scratch / "app", scratch / "share"}, settings, CodePage::Usual(), waiter};

    Heard() {
        for (const char* folder : {"app/sounds", "share/sounds"}) std::filesystem::create_directories(scratch / folder);
        for (const char* file : {"app/sounds/own.wav", "share/sounds/own.wav", "share/sounds/shared.wav"})
            std::ofstream(scratch / file) << "RIFF";
    }
    ~Heard() override { setenv("PATH", path.c_str(), 1); }

    std::string Plays(const std::string& player, const std::string& name) {
        const std::string bin = scratch / player, seen = scratch / "seen";
        std::filesystem::create_directories(bin);
        std::ofstream(bin + "/" + player) << "#!/bin/sh\necho \"${LC_ALL} $*\" > " + seen + "\n";
        std::filesystem::permissions(bin + "/" + player, std::filesystem::perms::owner_all);
        setenv("PATH", bin.c_str(), 1);
        std::filesystem::remove(seen);
        sound.Play(name);
        std::string line;
        std::ifstream file(seen);
        std::getline(file, line);
        const std::size_t root = line.find(scratch.path);
        return root == std::string::npos ? line : line.erase(root, scratch.path.size() + 1);
    }
};

TEST_F(Heard, ASoundIsTheClientsOwnElseThatOfTheShareAndAsLoudAsIsSet) {
    const struct {
        const char *player, *volume, *name, *seen;
    } kCases[] = {
        {"aplay", "", "own.wav", "C app/sounds/own.wav"},
        {"aplay", "50", "shared", "C share/sounds/shared.wav"}, // it knows of no volume
        {"aplay", "0", "own", ""},
        {"paplay", "", "own", "C --volume=65536 app/sounds/own.wav"},
        {"paplay", "25", "own", "C --volume=16384 app/sounds/own.wav"},
        {"paplay", "0", "own", ""},
        {"paplay", "loud", "own", "C --volume=65536 app/sounds/own.wav"},
        {"paplay", "101", "own", "C --volume=65536 app/sounds/own.wav"},
        {"paplay", "-1", "own", ""},
        {"pw-play", "100", "shared", "C --volume=1.000000 share/sounds/shared.wav"},
        {"pw-play", "50", "own", "C --volume=0.125000 app/sounds/own.wav"},
        {"pw-play", "50", "missing", ""},
        {"none", "50", "own", ""},
    };
    for (const auto& row : kCases) {
        settings.SaveSetting("Settings", "Volume", row.volume);
        EXPECT_EQ(Plays(row.player, row.name), row.seen) << row.player << " " << row.volume;
    }
}

} // namespace
} // namespace ombrin

// Programs of the machine: where they start, with what around them.
#include "platform/posix/posix_processes.h"

#include "../foundation/raised.h"
#include "../support/scratch.h"
#include "platform/waiter.h"

#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>

namespace ombrin {
namespace {

struct NoWait : Waiter {
    void RunUntil(const bool&) override {}
    void Block(Milliseconds) override {}
    void Breathe() override {}
};

struct Started : testing::Test {
    Scratch scratch;
    NoWait waiter;
    std::string runner = scratch / "runner.sh";
    WinePrefix prefix{[this] { return scratch / "prefix"; }};
    PosixProcesses processes{CodePage::Usual(), waiter, [this] { return runner; }, prefix};

    Started() {
        std::filesystem::create_directories(scratch / "prefix/dosdevices/c:/Games");
        Script("runner.sh");
        Script("game.sh");
    }
    /// Writes down what it finds, in one step.
    void Script(const std::string& name) {
        std::ofstream(scratch / name) << "#!/bin/sh\n{ pwd; echo \"$*\"; echo \"$WINEPREFIX|$SESSION\"; } > " +
                                             scratch.path + "/part; mv " + scratch.path + "/part " + scratch.path +
                                             "/seen\n";
        std::filesystem::permissions(scratch / name, std::filesystem::perms::owner_all);
    }
    /// What the program found, line by line with "," between.
    std::string Finds(const CommandLine& command) {
        EXPECT_NE(processes.Shell(command), Processes::kNone);
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!std::filesystem::exists(scratch / "seen") && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        std::ifstream seen(scratch / "seen");
        std::string all, line;
        while (std::getline(seen, line)) all += line + ",";
        std::filesystem::remove(scratch / "seen");
        return all;
    }
};

TEST_F(Started, AProgramFindsItsDirectoryAndItsEnvironment) {
    const std::string program = scratch / "game.sh";
    processes.ChDir(scratch.path);
    EXPECT_EQ(Finds({program + " -a \"b c\"", program.size()}), scratch.path + ",-a b c,|,");
    CommandLine other{program, program.size()};
    other.directory = scratch / "prefix";
    other.environment = {{"SESSION", "here"}};
    EXPECT_EQ(Finds(other), scratch / "prefix" + ",,|here,");
    EXPECT_EQ(Raised([&] { processes.ChDir(scratch / "nowhere"); }), 76);
    other.directory = scratch / "nowhere";
    EXPECT_EQ(processes.Shell(other), Processes::kNone);
}

TEST_F(Started, AWindowsProgramStartsInItsOwnFolderOfThePrefix) {
    const std::string program = "C:\\Games\\quake.exe", named = scratch / "prefix";
    const std::string folder = std::filesystem::canonical(named + "/dosdevices/c:/Games").string();
    processes.ChDir("C:\\Games");
    EXPECT_EQ(Finds({program + " +x", program.size()}), folder + "," + program + " +x," + named + "|,");
    processes.ChDir("C:\\GAMES"); // the runner finds it, whatever the letters
    const std::string found = Finds({program, program.size()});
    EXPECT_EQ(found.substr(found.find(',')), "," + program + "," + named + "|,");
    runner = scratch / "none";
    EXPECT_EQ(Raised([&] { processes.Shell({program, program.size()}); }), 53);
}

} // namespace
} // namespace ombrin

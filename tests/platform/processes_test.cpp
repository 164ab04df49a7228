// Programs of the machine: where they start, with what around them.
#include "platform/posix/posix_processes.h"

#include "../foundation/raised.h"
#include "played_programs.h"

namespace ombrin {
namespace {

struct Started : PlayedPrograms {
    std::string runner = scratch / "runner.sh";
    WinePrefix prefix{[this] { return scratch / "prefix"; }};
    PosixProcesses processes{CodePage::Usual(), *this, [this] { return runner; }, prefix};

    Started() {
        std::filesystem::create_directories(scratch / "prefix/dosdevices/c:/Games");
        for (const char* name : {"runner.sh", "game.sh"})
            Program(name, R"(pwd; echo "$*"; echo "$WINEPREFIX|$SESSION")");
    }
    std::string Finds(const CommandLine& command) {
        EXPECT_NE(processes.Shell(command), Processes::kNone);
        return Seen();
    }
};

TEST_F(Started, AProgramFindsItsDirectoryAndItsEnvironment) {
    const std::string program = scratch / "game.sh";
    processes.ChDir(scratch.path);
    EXPECT_EQ(Finds({program + " -a \"b c\"", program.size()}), scratch.path + ",-a b c,|");
    CommandLine other{program, program.size()};
    other.directory = scratch / "prefix";
    other.environment = {{"SESSION", "here"}};
    EXPECT_EQ(Finds(other), "prefix,,|here");
    EXPECT_EQ(Raised([&] { processes.ChDir(scratch / "nowhere"); }), 76);
    other.directory = scratch / "nowhere";
    EXPECT_EQ(processes.Shell(other), Processes::kNone);
}

TEST_F(Started, AWindowsProgramStartsInItsOwnFolderOfThePrefix) {
    const std::string program = "C:\\Games\\quake.exe";
    processes.ChDir("C:\\Games");
    EXPECT_EQ(Finds({program + " +x", program.size()}), "prefix/dosdevices/c:/Games," + program + " +x,prefix|");
    processes.ChDir("C:\\GAMES"); // the runner finds it, whatever the letters
    const std::string found = Finds({program, program.size()});
    EXPECT_EQ(found.substr(found.find(',')), "," + program + ",prefix|");
    runner = scratch / "none";
    EXPECT_EQ(Raised([&] { processes.Shell({program, program.size()}); }), 53);
}

} // namespace
} // namespace ombrin

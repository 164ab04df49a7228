// The real patcher in a home of its own, with shell scripts for clients.
#include "../support/scratch.h"
#include "foundation/file_version.h"
#include "patcher/file_steps.h"
#include "patcher/patch.h"
#include "platform/posix/file_source.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <thread>

namespace ombrin::patcher {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

std::string Read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Write(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

/// A client that leaves a line saying that it ran, and does what follows.
std::string Client(const std::string& name, const std::string& then = "exit 0") {
    return "#!/bin/sh\necho " + name + " >> \"$OMBRIN_HOME/ran\"\n" + then + "\n";
}
const std::string kOld = Client("old"), kNew = Client("new"), kBroken = Client("broken", "exit 3");

struct KillingReporter : Reporter {
    explicit KillingReporter(int steps) : left(steps) {}
    void Step(const std::string&) override {
        if (left-- == 0) kill(getpid(), SIGKILL);
    }
    void Waiting(const LanguageText&) override {}
    void Failed(const LanguageText&, const std::string&) override {}
    int left;
};

class Patcher : public testing::Test {
protected:
    Patcher() {
        for (const char* folder : {"system", "windows", "cd/Client"}) fs::create_directories(home / folder);
        Write(home / "settings.ini", "[Settings]\nClientDirectory=" + (home / "cd") + "\n");
        Install();
    }
    /// As an installer leaves it.
    void Install() {
        Write(system + "Ping.ocx", "old");
        Write(system + "Ombrin.ocx", "old");
        Write(client + "OmbrinExe.exe", kOld);
        fs::permissions(client + "OmbrinExe.exe", fs::perms(0755));
        fs::remove(home / "ran");
    }
    /// As a client leaves it behind.
    void Fetch(const std::string& newClient) {
        Write(system + "Ping7.ocx", "new");
        Write(system + "Ombrin7.ocx", "new");
        Write(client + "OmbrinExe7.exe", newClient);
    }

    pid_t Start(std::vector<std::string> options = {}) {
        return Fork([&] {
            setenv("OMBRIN_HOME", home.path.c_str(), 1);
            for (const char* screen : {"DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(screen);
            const int said = open((home / "said").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            dup2(said, STDERR_FILENO);
            std::vector<char*> arguments{const_cast<char*>(OMBRIN_PATCHER)};
            for (std::string& option : options) arguments.push_back(option.data());
            arguments.push_back(nullptr);
            return execv(OMBRIN_PATCHER, arguments.data());
        });
    }
    int Run(std::vector<std::string> options = {}) { return ExitCode(Start(std::move(options))); }

    /// The patcher's work in another process, which is killed before a step; its exit code or -1.
    int RunKilledBefore(int step) {
        return ExitCode(Fork([&] {
            setenv("OMBRIN_HOME", home.path.c_str(), 1);
            KillingReporter reporter(step);
            Patch patch{.systemFolder = home / "system",
                        .clientFolder = home / "cd/Client",
                        .windowsFolder = home / "windows",
                        .registerComponent = [](const std::string&) {},
                        .reporter = reporter};
            return patch.Run();
        }));
    }

    std::string Components() const { return Read(system + "Ping.ocx") + " " + Read(system + "Ombrin.ocx"); }
    std::vector<std::string> Left() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(home.path))
            if (entry.is_regular_file() && !entry.path().string().ends_with(".lock"))
                names.push_back(entry.path().filename().string());
        return names;
    }
    void ExpectNothingIsLeftOver() const {
        EXPECT_THAT(Left(), testing::IsSupersetOf({"Ping.ocx", "Ombrin.ocx", "OmbrinExe.exe"}));
        EXPECT_THAT(Left(), testing::Each(testing::AnyOf("Ping.ocx", "Ombrin.ocx", "OmbrinExe.exe", "settings.ini",
                                                         "AVClLogs.txt", "ran", "said")));
    }

    Scratch home;
    const std::string system = home / "system/", client = home / "cd/Client/";
};

TEST_F(Patcher, HandsOverWhatWorksAndTakesBackWhatDoesNot) {
    struct Case {
        const char* what;
        std::string newClient;
        const char* trial; ///< short where the client goes on
        int status;
        std::string ran, components, said;
    };
    const Case kCases[] = {
        {"a new client", kNew, "60", 0, "new\n", "new new", ""},
        {"one that goes on", Client("new", "exec sleep 1"), "0.3", 0, "new\n", "new new", ""},
        {"one that fails", kBroken, "60", 1, "broken\nold\n", "old old", "ended with status 3 at its start"},
        {"one that is killed", Client("shot", "kill -9 $$"), "60", 1, "shot\nold\n", "old old",
         "was ended by signal 9"},
        {"no program", "MZ and nothing else", "60", 1, "old\n", "old old", "cannot be started: Exec format error"},
    };
    for (const Case& c : kCases) {
        Install();
        Fetch(c.newClient);
        EXPECT_EQ(Run({"--trial", c.trial}), c.status) << c.what;
        EXPECT_EQ(Read(home / "ran"), c.ran) << c.what;
        EXPECT_EQ(Components(), c.components) << c.what;
        EXPECT_THAT(Read(home / "said"), HasSubstr(c.said)) << c.what;
        EXPECT_THAT(Read(system + "AVClLogs.txt"), HasSubstr(c.said)) << c.what;
        ExpectNothingIsLeftOver();
    }
}

TEST_F(Patcher, KilledAtAnyStepLeavesAClientThatStartsAndFinishesTheNextTime) {
    for (const std::string& newClient : {kNew, kBroken}) {
        const std::string outcome = newClient == kNew ? "new" : "old";
        int step = 0;
        for (bool killed = true; killed; ++step) {
            Install();
            Fetch(newClient);
            killed = RunKilledBefore(step) == -1;
            const std::string between = Read(client + "OmbrinExe.exe");
            ASSERT_TRUE(between == kOld || between == newClient) << between;
            ASSERT_EQ(access((client + "OmbrinExe.exe").c_str(), X_OK), 0);
            Run();
            EXPECT_EQ(Read(client + "OmbrinExe.exe"), newClient == kNew ? kNew : kOld) << step;
            EXPECT_EQ(Components(), outcome + " " + outcome) << step;
            EXPECT_TRUE(Read(home / "ran").ends_with(outcome + "\n")) << step << ": " << Read(home / "ran");
            ExpectNothingIsLeftOver();
        }
        EXPECT_GT(step, 8);
    }
}

// As a client from the system's packages has it in its user's folder.
TEST_F(Patcher, ALinkToTheInstalledClientGivesWayToANewOneAndComesBackWhereThatFails) {
    const std::string installed = home / "installed", own = client + "OmbrinExe.exe";
    for (const std::string& newClient : {kNew, kBroken}) {
        Install();
        Write(installed, kOld);
        fs::permissions(installed, fs::perms(0750));
        fs::remove(own);
        fs::create_symlink(installed, own);
        Fetch(newClient);
        EXPECT_EQ(Run(), newClient == kNew ? 0 : 1);
        EXPECT_EQ(fs::is_symlink(own), newClient == kBroken);
        EXPECT_EQ(Read(own), newClient == kNew ? kNew : kOld);
        EXPECT_EQ(fs::status(own).permissions(), fs::perms(0750));
        EXPECT_EQ(Read(installed), kOld) << "what is installed is not touched";
        fs::remove(own);
    }
}

// The patcher was killed after the placing, the client ran all the same, and fetched a still newer one, which fails.
TEST_F(Patcher, GoesBackToTheLastWholeSet) {
    for (const char* name : {"Ping", "Ombrin"}) {
        Write(system + name + "8.ocx", "old");
        Write(system + name + ".ocx", "new");
    }
    fs::rename(client + "OmbrinExe.exe", client + "OmbrinExe8.exe");
    Write(client + "OmbrinExe.exe", kNew);
    Write(system + "OBPatch.state", "placing\n");
    Write(client + "OmbrinExe7.exe", kBroken);
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(Components(), "old old");
    EXPECT_EQ(Read(client + "OmbrinExe.exe"), kOld);
    ExpectNothingIsLeftOver();
}

TEST_F(Patcher, AFileThatCannotBePutInPlaceTakesTheOthersBack) {
    Fetch(kNew);
    fs::remove(system + "Ombrin.ocx");
    fs::create_directories(system + "Ombrin.ocx/full");
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(Read(system + "Ping.ocx"), "old");
    EXPECT_EQ(Read(home / "ran"), "old\n");
    EXPECT_THAT(Read(home / "said"), HasSubstr("system/Ombrin.ocx is in the way: it is no plain file"));
    EXPECT_THAT(Left(), testing::Not(testing::Contains("OmbrinExe7.exe")));
}

TEST_F(Patcher, FindsTheThreeInEachFolderAndInAnyCapitals) {
    Write(home / "windows/Ping7.ocx", "new");
    Write(client + "OMBRIN7.OCX", "\x7F"
                                  "ELF");
    Write(client + "OMBRINEXE7.EXE", kNew);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(Read(home / "windows/Ping.ocx"), "new");
    EXPECT_EQ(Read(client + "OmbrinExe.exe"), kNew);
    EXPECT_EQ(ModeOf(client + "Ombrin.ocx") & 0111U, 0111U); // a new one that begins as a program
    EXPECT_EQ(Read(home / "ran"), "new\n");
}

TEST_F(Patcher, StartedTwiceDoesTheWorkOnce) {
    Fetch(kNew);
    auto running = FileLock::Try(system + "OmbrinExe.lock", FileLock::Kind::Shared);
    const pid_t one = Start();
    while (Read(system + "AVClLogs.txt").find("waiting for the client") == std::string::npos) std::this_thread::yield();
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(Components(), "old old");
    running.reset();
    EXPECT_EQ(ExitCode(one), 0);
    EXPECT_EQ(Components(), "new new");
    EXPECT_EQ(Read(home / "ran"), "new\n");
    ExpectNothingIsLeftOver();
}

TEST_F(Patcher, WaitsForRunningClients) {
    Fetch(kNew);
    auto running = FileLock::Try(system + "OmbrinExe.lock", FileLock::Kind::Shared);
    ASSERT_TRUE(running);
    EXPECT_EQ(Run({"--wait", "0.1"}), 1);
    EXPECT_THAT(Read(home / "said"), HasSubstr("Ombrin is still running"));
    const std::string languageFile = home / "windows/AVfLang.ini";
    Write(languageFile, "[CurrentLanguage]\nLanguage=Deutsch\n[Deutsch]\nPatchStillRunning=Ombrin l\xE4uft noch.\n");
    EXPECT_EQ(Run({"--wait", "0.1"}), 1);
    EXPECT_EQ(Read(home / "said"), "OBPatch: Ombrin l\u00E4uft noch.\n");
    fs::remove(languageFile);
    EXPECT_EQ(Components(), "old old");
    EXPECT_FALSE(fs::exists(home / "ran"));
    const pid_t waiting = Start();
    running.reset();
    EXPECT_EQ(ExitCode(waiting), 0);
    EXPECT_EQ(Read(home / "ran"), "new\n");
}

TEST_F(Patcher, AClientStartedOverABrokenHandOverLetsThePatcherFinishFirst) {
    const PosixFiles files(CodePage::Usual());
    const auto start = [&] {
        return ExitCode(Fork([&] {
            FinishHandOverFirst(Places{home.path}, files);
            return 7; // went on as a client
        }));
    };
    Write(system + "OBPatch.state", "placing\n");
    EXPECT_EQ(start(), 7) << "there is no patcher";
    Write(system + "OBPatch.exe", "#!/bin/sh\nexit 8\n");
    fs::permissions(system + "OBPatch.exe", fs::perms(0755));
    EXPECT_EQ(start(), 8);
    {
        const FileLock other = HoldClientFiles(Places{home.path}, files);
        EXPECT_EQ(start(), 7) << "another client runs";
    }
    fs::remove(system + "OBPatch.state");
    EXPECT_EQ(start(), 7) << "there is nothing to finish";
}

TEST_F(Patcher, KeepsAFileWhereTheFileSystemHasNoLinks) {
    Write(home / "a", std::string(200'000, 'x'));
    std::string other = "/dev/shm/ombrin-XXXXXX"; // another file system, to which no link leads
    const int file = mkstemp(other.data());
    if (file < 0) GTEST_SKIP() << "no second file system";
    close(file);
    Remove(other);
    DuplicateFile(home / "a", other);
    EXPECT_EQ(Read(other), Read(home / "a"));
    EXPECT_FALSE(Exists(other + ".part"));
    Remove(other);
}

TEST(Programs, CarryTheirVersion) {
    for (const char* program : {OMBRIN_PATCHER, OMBRIN_CONSOLE}) {
        FileSource file(program);
        EXPECT_EQ(FileVersion(file), OMBRIN_VERSION) << program;
    }
}

} // namespace
} // namespace ombrin::patcher

#include "platform/posix/posix_files.h"

#include "../foundation/raised.h"
#include "../support/scratch.h"
#include "foundation/settings.h"
#include "platform/posix/wine_prefix.h"

#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace ombrin {
namespace {

namespace fs = std::filesystem;

class PosixFilesTest : public testing::Test {
protected:
    void Write(const std::string& path, const std::string& content,
               Files::Readers readers = Files::Readers::Everybody) {
        files.Update(path, readers, [&](const auto&) { return std::optional(content); });
    }
    static unsigned ModeOf(const std::string& path) { return static_cast<unsigned>(fs::status(path).permissions()); }
    std::size_t FilesBeside() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(scratch.path), fs::directory_iterator()));
    }

    Scratch scratch;
    PosixFiles files{CodePage::Usual()};
    const std::string path = scratch / "settings.ini";
};

TEST_F(PosixFilesTest, AKilledWriterLeavesTheOldFileOrTheNewOne) {
    const std::string versions[] = {std::string(60'000, 'a'), std::string(90'000, 'b')};
    Write(path, versions[0]);
    std::mt19937 random(7);
    for (int run = 0; run < 40; ++run) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t child = Fork([&] {
            for (std::size_t i = 0;; ++i) {
                Write(path, versions[i % 2]);
                if (write(ends[1], "x", 1) != 1) return 1;
            }
        });
        close(ends[1]);
        char begun = 0;
        EXPECT_EQ(read(ends[0], &begun, 1), 1);
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 3'000)); // any moment of a write
        kill(child, SIGKILL);
        EXPECT_EQ(ExitCode(child), -1) << "the writer had failed before";
        close(ends[0]);
        const std::string left = files.Read(path);
        ASSERT_TRUE(left == versions[0] || left == versions[1]) << left.size() << " bytes in run " << run;
    }
    Write(path, "after it all"); // no lock outlives its process
    EXPECT_EQ(files.Read(path), "after it all");
    EXPECT_LE(FilesBeside(), 2U) << "the file and its lock; what the killed ones had begun must not pile up";
}

TEST_F(PosixFilesTest, TwoClientsOfOneUserLoseNoneOfTheirSettings) {
    constexpr int kKeys = 200;
    const auto save = [&](const std::string& client) {
        PosixFiles own(CodePage::Usual());
        Settings settings(own, path);
        for (int i = 0; i < kKeys; ++i) settings.SaveSetting("Games", client + std::to_string(i), client);
        return 0;
    };
    const pid_t first = Fork([&] { return save("first"); }), second = Fork([&] { return save("second"); });
    EXPECT_EQ(ExitCode(first), 0);
    EXPECT_EQ(ExitCode(second), 0);
    Settings settings(files, path);
    for (int i = 0; i < kKeys; ++i)
        for (const std::string client : {"first", "second"})
            EXPECT_EQ(settings.GetSetting("Games", client + std::to_string(i)), client) << i;
}

TEST_F(PosixFilesTest, PasswordsCanBeReadByTheirUserOnly) {
    const mode_t before = umask(0);
    Settings(files, path).SaveSetting("Settings", "UserPassword", "secret");
    EXPECT_EQ(ModeOf(path), 0600U);
    ASSERT_EQ(chmod(path.c_str(), 0644), 0);
    Settings(files, path).SaveSetting("Settings", "UserPassword", "changed");
    EXPECT_EQ(ModeOf(path), 0600U) << "a file that was open to others is closed at the next change";
    files.AppendRecord(scratch / "AVClLogs.txt", "x", 10);
    EXPECT_EQ(ModeOf(scratch / "AVClLogs.txt"), 0600U);
    for (int i = 0; i < 2; ++i) files.MakeFolder(scratch.path + R"(\home/root)", Files::Readers::UserOnly);
    EXPECT_EQ(ModeOf(scratch / "home/root"), 0700U);
    umask(before);
}

TEST_F(PosixFilesTest, ASharedFileKeepsItsPermissionsAndALinkStaysWhileItsTargetChanges) {
    fs::create_directory(scratch / "elsewhere");
    for (const char* target : {"elsewhere/there", "elsewhere/not yet there"}) {
        fs::remove(path);
        fs::create_symlink(target, path);
        for (const unsigned mode : {0644U, 0664U}) {
            if (fs::exists(path)) fs::permissions(path, fs::perms(mode));
            Write(path, std::to_string(mode));
            EXPECT_TRUE(fs::is_symlink(path)) << target;
            EXPECT_EQ(files.Read(scratch / target), std::to_string(mode));
            EXPECT_EQ(ModeOf(scratch / target), mode);
        }
    }
}

TEST_F(PosixFilesTest, AWriteThatFailsHalfwayLeavesTheOldFileAndNothingElse) {
    Write(path, "old");
    const std::size_t filesBefore = FilesBeside();
    const int number = ExitCode(Fork([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1'000, 1'000};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 98;
        return Raised([&] { Write(path, std::string(5'000, 'x')); });
    }));
    EXPECT_EQ(number, 57);
    EXPECT_EQ(files.Read(path), "old");
    EXPECT_EQ(FilesBeside(), filesBefore);
}

TEST_F(PosixFilesTest, FailuresTellTheirKind) {
    const std::string missing = scratch / "none/file";
    fs::create_directory(scratch / "folder");
    std::ofstream(scratch / "plain") << "x";
    EXPECT_EQ(Raised([&] { files.Read(scratch / "none"); }), 53);
    EXPECT_EQ(Raised([&] { files.Read(missing); }), 76);
    EXPECT_EQ(Raised([&] { Write(missing, "x"); }), 76);
    EXPECT_EQ(Raised([&] { files.AppendRecord(missing, "x", 10); }), 76);
    EXPECT_EQ(Raised([&] { Write(scratch / "plain/file", "x"); }), 76);
    EXPECT_EQ(Raised([&] { files.Read(std::string("a\0b", 3)); }), 76);
    EXPECT_EQ(Raised([&] { Write(scratch / "folder", "x"); }), 75);
    EXPECT_EQ(Raised([&] { files.AppendRecord(scratch / "folder", "x", 10); }), 75);
    EXPECT_EQ(Raised([&] { files.AppendRecord("/dev/full", "x", 10); }), 61);
    EXPECT_EQ(Raised([&] { files.MakeFolder(scratch / "plain", Files::Readers::Everybody); }), 76);
    EXPECT_FALSE(fs::exists(scratch / "none"));
}

TEST_F(PosixFilesTest, NamesOnTheDiskAreUtf8AndThoseOfNoPageAreLeftOut) {
    files.AppendRecord(scratch / "\xDC"
                                 "ber\x80.txt",
                       "x", 10);
    EXPECT_TRUE(fs::exists(scratch / "\xC3\x9C"
                                     "ber\xE2\x82\xAC.txt"));
    std::ofstream(scratch / "\xD0\x90.txt") << "x";
    EXPECT_THAT(files.NamesIn(scratch.path), testing::ElementsAre("\xDC"
                                                                  "ber\x80.txt"));
}

TEST_F(PosixFilesTest, APathWithADriveLetterGoesByTheDrivesOfAPrefix) {
    const WinePrefix prefix([this] { return scratch.path; });
    fs::create_directories(scratch / "dosdevices/c:/Games");
    files.drives = [&](std::string_view native) { return prefix.Native(native); };
    Write(R"(C:\Games\FS2002.cfg)", "[MULTIPLAYER]");
    EXPECT_EQ(files.Read(scratch / "dosdevices/c:/Games/FS2002.cfg"), "[MULTIPLAYER]");
    EXPECT_THAT(files.NamesIn(R"(c:\Games\)"), testing::Contains("FS2002.cfg"));
}

} // namespace
} // namespace ombrin

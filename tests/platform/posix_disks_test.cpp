// What a search for a game sees of a directory.
#include "platform/posix/posix_disks.h"

#include "../support/scratch.h"

#include <fstream>
#include <gmock/gmock.h>

namespace ombrin {
namespace {

namespace fs = std::filesystem;

TEST(PosixDisks, ASearchSeesFilesAndWhatItCanEnter) {
    const Scratch scratch;
    fs::create_directories(scratch / "games/quake");
    fs::create_directory(scratch / "games/.cache");
    std::ofstream(scratch / "games/hl.exe") << "x";
    fs::create_symlink("hl.exe", scratch / "games/linked.exe");
    fs::create_directory_symlink("quake", scratch / "games/folder.exe");
    fs::create_symlink("gone", scratch / "games/nowhere.exe");
    const WinePrefix none([] { return std::string(); });
    PosixDisks disks(CodePage::Usual(), none);
    for (const std::string& path : {scratch / "games/", scratch.path + "\\games\\"}) {
        std::vector<std::string> seen;
        for (const Disks::Entry& entry : disks.List(path))
            seen.push_back((entry.isHidden ? "hidden " : "") + entry.name + (entry.isDirectory ? "/" : ""));
        EXPECT_THAT(seen, testing::UnorderedElementsAre("quake/", "hidden .cache/", "hl.exe", "linked.exe"));
    }
    EXPECT_THAT(disks.List(scratch / "none/"), testing::IsEmpty());
}

} // namespace
} // namespace ombrin

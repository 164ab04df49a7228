// Targets handed to the desktop, whose program for that is played by a script here.
#include "platform/posix/posix_desktop.h"

#include "../support/scratch.h"

#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>

namespace ombrin {
namespace {

/// With a program on the PATH that writes down, as a whole, what it is started with.
struct Opened : testing::Test {
    Scratch scratch;
    std::string path = std::getenv("PATH");
    PosixOpener opener{CodePage::Usual()};

    Opened() {
        const std::string bin = scratch / "bin", program = bin + "/xdg-open", seen = scratch / "seen";
        for (const std::string& folder : {bin, scratch / "app/docs"}) std::filesystem::create_directories(folder);
        for (const char* file : {"app/docs/rules.txt", "app/-n"}) std::ofstream(scratch / file) << "x";
        std::ofstream(program) << "#!/bin/sh\necho \"$*\" > " + seen + ".new && mv " + seen + ".new " + seen + "\n";
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        setenv("PATH", (bin + ":" + path).c_str(), 1);
    }
    ~Opened() override { setenv("PATH", path.c_str(), 1); }

    /// What was opened, its path without the scratch folder; "refused" for what was not.
    std::string Opens(const std::string& target) {
        if (opener.Open(target, scratch / "app") <= 32) return "refused";
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!std::filesystem::exists(scratch / "seen") && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        std::string line;
        std::ifstream file(scratch / "seen");
        std::getline(file, line);
        std::filesystem::remove(scratch / "seen");
        const std::size_t root = line.find(scratch.path);
        return root == std::string::npos ? line : line.erase(root, scratch.path.size() + 1);
    }
};

TEST_F(Opened, AnAddressGoesOutAsItIsAndAFileIsLookedForInTheProgramsFolder) {
    const struct {
        std::string target, opened;
    } kCases[] = {{"https://news.example/a?b=c", "https://news.example/a?b=c"},
                  {"mailto:ann@news.example", "mailto:ann@news.example"},
                  {"docs/rules.txt", "app/docs/rules.txt"},
                  {"docs\\rules.txt", "app/docs/rules.txt"},
                  {scratch / "app/docs", "app/docs"},
                  {"-n", "app/-n"}, // no option of the program
                  {"docs/missing.txt", "refused"},
                  {"C:\\Depot.exe", "refused"},
                  {"--help", "refused"},
                  {"", "refused"}};
    for (const auto& row : kCases) EXPECT_EQ(Opens(row.target), row.opened) << row.target;
}

} // namespace
} // namespace ombrin

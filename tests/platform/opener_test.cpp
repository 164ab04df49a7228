// Targets handed to the desktop.
#include "platform/posix/posix_desktop.h"

#include "played_programs.h"

namespace ombrin {
namespace {

struct Opened : PlayedPrograms {
    PosixOpener opener{CodePage::Usual()};

    Opened() {
        Program("bin/xdg-open", "echo \"$*\"");
        std::filesystem::create_directories(scratch / "app/docs");
        for (const char* file : {"app/docs/rules.txt", "app/-n"}) std::ofstream(scratch / file) << "x";
        setenv("PATH", (scratch / "bin:" + path).c_str(), 1);
    }

    /// What was opened; "refused" for what was not.
    std::string Opens(const std::string& target) {
        return opener.Open(target, scratch / "app") <= 32 ? "refused" : Seen();
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

// Sounds by the players of the machine.
#include "platform/posix/posix_desktop.h"

#include "platform/posix/posix_files.h"
#include "played_programs.h"

namespace ombrin {
namespace {

struct Heard : PlayedPrograms {
    PosixFiles files{CodePage::Usual()};
    Settings settings{files, scratch / "settings.ini"};
    PosixSound sound{{scratch / "app", scratch / "share"}, settings, CodePage::Usual(), *this};

    Heard() {
        for (const char* folder : {"app/sounds", "share/sounds"}) std::filesystem::create_directories(scratch / folder);
        for (const char* file : {"app/sounds/own.wav", "share/sounds/own.wav", "share/sounds/shared.wav"})
            std::ofstream(scratch / file) << "RIFF";
    }

    /// With this player alone on the PATH.
    std::string Plays(const std::string& player, const std::string& name) {
        Program(player + "/" + player, "echo \"${LC_ALL} $*\"");
        setenv("PATH", (scratch / player).c_str(), 1);
        sound.Play(name);
        return Seen(std::chrono::seconds(0));
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

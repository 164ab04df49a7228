// The desktop's services without a toolkit, by the small programs that every desktop has for them.
#pragma once

#include "foundation/code_page.h"
#include "foundation/settings.h"
#include "platform/desktop.h"
#include "platform/sound_files.h"
#include "platform/waiter.h"

#include <string>
#include <vector>

namespace ombrin {

/// Programs found on the PATH, started with an argument list and no shell. Those that have ended are looked after at
/// the next start.
class Programs {
public:
    /// `input` goes to its standard input; `environment` holds "name=value" beside what is inherited. The process id,
    /// or -1 when there is no such program.
    int Start(const std::vector<std::string>& arguments, std::string_view input, const std::string& directory,
              const std::vector<std::string>& environment = {});
    /// A path, or a name on the PATH, that can be run.
    static bool IsThere(const std::string& program);
    bool HasEnded(int process);
    void Kill(int process);

private:
    std::vector<int> running;
};

/// Plays by pw-play, paplay or aplay. The volume (sound_volume.h) is read anew each time; aplay knows of none, and only
/// silence is kept there.
class PosixSound : public Sound {
public:
    PosixSound(SoundFolders folders, Settings& settings, const CodePage& page, Waiter& waiter)
        : folders(std::move(folders)), settings(settings), page(page), waiter(waiter) {}
    void Play(std::string_view name) override;

private:
    SoundFolders folders;
    Settings& settings;
    const CodePage& page;
    Waiter& waiter;
    Programs programs;
};

/// By wl-copy or xclip.
class PosixClipboard : public Clipboard {
public:
    explicit PosixClipboard(const CodePage& page) : page(page) {}
    void SetText(std::string_view text) override;

private:
    const CodePage& page;
    Programs programs;
};

/// By xdg-open.
class PosixOpener : public TargetOpener {
public:
    explicit PosixOpener(const CodePage& page) : page(page) {}
    int Open(std::string_view target, std::string_view workingDirectory) override;

private:
    const CodePage& page;
    Programs programs;
};

} // namespace ombrin

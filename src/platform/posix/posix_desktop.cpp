#include "platform/posix/posix_desktop.h"

#include "foundation/runtime_error.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/posix_files.h"
#include "platform/sound_volume.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>

extern char** environ;

namespace ombrin {

namespace {

constexpr Milliseconds kLongestSound{5000}, kSlice{20};

bool IsOnPath(const std::string& program) {
    const char* path = std::getenv("PATH");
    std::string folders = path != nullptr ? path : "/usr/bin:/bin";
    for (std::size_t start = 0; start <= folders.size();) {
        const std::size_t end = std::min(folders.find(':', start), folders.size());
        if (access((folders.substr(start, end - start) + "/" + program).c_str(), X_OK) == 0) return true;
        start = end + 1;
    }
    return false;
}

/// The first program of the list that this machine has.
template <std::size_t N>
std::string FirstPresent(const std::array<const char*, N>& programs) {
    for (const char* program : programs)
        if (IsOnPath(program)) return program;
    return {};
}

/// As the system takes lists of texts; they point into the given ones.
std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

/// This program's variables, with others in front of those of the same name.
std::vector<std::string> Inherited(std::vector<std::string> variables) {
    const std::size_t own = variables.size();
    for (char** inherited = environ; *inherited != nullptr; ++inherited) {
        const std::string_view variable = *inherited;
        const std::string_view name = variable.substr(0, variable.find('=') + 1);
        if (std::none_of(variables.begin(), variables.begin() + static_cast<std::ptrdiff_t>(own),
                         [&](const std::string& other) { return other.starts_with(name); }))
            variables.emplace_back(variable);
    }
    return variables;
}

/// A scheme has two letters at least: one alone is a drive.
bool IsAddress(std::string_view target) {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    constexpr std::string_view kOthers = "0123456789+-.";
    const std::string_view scheme = target.substr(0, target.find(':'));
    return scheme.size() < target.size() && scheme.size() > 1 && kLetters.find(scheme[0]) != std::string_view::npos &&
           std::all_of(scheme.begin(), scheme.end(), [&](char c) {
               return kLetters.find(c) != std::string_view::npos || kOthers.find(c) != std::string_view::npos;
           });
}

/// What a player is started with.
std::vector<std::string> Played(const std::string& player, const std::string& file, int volume) {
    if (player == "paplay") { // it hears as people do
        constexpr int kFull = 65'536;
        return {player, "--volume=" + std::to_string(kFull * volume / kFullVolume), file};
    }
    if (player == "pw-play") { // it counts the amplitude, of which the ear takes about the cube root
        const double heard = static_cast<double>(volume) / kFullVolume;
        return {player, "--volume=" + std::to_string(heard * heard * heard), file};
    }
    return {player, file};
}

} // namespace

bool Programs::IsThere(const std::string& program) {
    return program.find('/') != std::string::npos ? access(program.c_str(), X_OK) == 0 : IsOnPath(program);
}

int Programs::Start(const std::vector<std::string>& arguments, std::string_view input, const std::string& directory,
                    const std::vector<std::string>& environment) {
    std::erase_if(running, [](int process) { return waitpid(process, nullptr, WNOHANG) != 0; });
    const std::vector<std::string> surroundings = Inherited(environment);
    const std::vector<char*> list = Pointers(arguments), variables = Pointers(surroundings);
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return -1;
    const Descriptor readEnd(ends[0]), writeEnd(ends[1]);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, readEnd.Number(), STDIN_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    if (!directory.empty()) posix_spawn_file_actions_addchdir_np(&actions, directory.c_str());
    // What this process blocks or ignores is no affair of another program.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none, usual;
    sigemptyset(&none);
    sigemptyset(&usual);
    sigaddset(&usual, SIGPIPE);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &usual);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    pid_t process = -1;
    const int problem = posix_spawnp(&process, list[0], &actions, &attributes, list.data(), variables.data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (problem != 0) return -1;
    running.push_back(process);
    // Short inputs only: they fit the pipe, so the write never waits for the program.
    fcntl(writeEnd.Number(), F_SETFL, O_NONBLOCK);
    if (!input.empty() && write(writeEnd.Number(), input.data(), input.size()) < 0) return -1;
    return process;
}

bool Programs::HasEnded(int process) {
    if (waitpid(process, nullptr, WNOHANG) == 0) return false;
    std::erase(running, process);
    return true;
}

void Programs::Kill(int process) {
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    std::erase(running, process);
}

void PosixSound::Play(std::string_view name) {
    const int volume = SoundVolume(settings);
    if (name.empty() || volume == 0) return;
    const std::vector<std::string> files = SoundFiles(folders, page.ToUtf8(name));
    const auto file = std::find_if(files.begin(), files.end(), [](const std::string& candidate) {
        struct stat info {};
        return stat(candidate.c_str(), &info) == 0;
    });
    if (file == files.end()) return;
    const std::string player = FirstPresent(std::array{"pw-play", "paplay", "aplay"});
    if (player.empty()) return;
    const std::vector<std::string> plainNumbers{"LC_ALL=C"}; // or a player may ask for a comma in the volume
    const int process = programs.Start(Played(player, *file, volume), {}, {}, plainNumbers);
    if (process < 0) return;
    const auto start = std::chrono::steady_clock::now();
    for (Milliseconds waited{0}; waited < kLongestSound; waited += kSlice) {
        if (programs.HasEnded(process)) return;
        waiter.Block(kSlice);
    }
    // Where waits take no time, the sound goes on by itself.
    if (std::chrono::steady_clock::now() - start >= kLongestSound / 2) programs.Kill(process);
}

void PosixClipboard::SetText(std::string_view text) {
    const std::string program = FirstPresent(std::array{"wl-copy", "xclip"});
    if (program.empty()) throw RuntimeError(ErrorNumber::InvalidProcedureCall, "there is no clipboard");
    std::vector<std::string> arguments{program};
    if (program == "xclip") arguments.insert(arguments.end(), {"-selection", "clipboard"});
    programs.Start(arguments, page.ToUtf8(text), {});
}

int PosixOpener::Open(std::string_view target, std::string_view workingDirectory) {
    constexpr int kNotFound = 2, kOpened = 33;
    if (target.empty() || target.find('\0') != std::string_view::npos) return kNotFound;
    const std::string folder = page.ToUtf8(workingDirectory);
    std::string opened = page.ToUtf8(target);
    if (!IsAddress(target)) { // xdg-open tells of a missing file when nobody waits for it any more
        opened = std::filesystem::absolute(std::filesystem::path(folder) / PosixFiles(page).Native(target)).string();
        if (access(opened.c_str(), F_OK) != 0) return kNotFound;
    }
    const int process = programs.Start({"xdg-open", opened}, {}, folder);
    return process < 0 ? kNotFound : kOpened;
}

} // namespace ombrin

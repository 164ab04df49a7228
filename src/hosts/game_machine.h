// What a host needs of the machine to start games: programs, Windows programs by way of their runner, and what the
// registry knows of them.
#pragma once

#include "foundation/places.h"
#include "foundation/settings.h"
#include "platform/hive_registry.h"
#include "platform/posix/posix_disks.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_processes.h"
#include "platform/session_applications.h"
#include "platform/wine_registry.h"

namespace ombrin {

/// The settings `Runner` and `WinePrefix` are read anew at each use.
struct GameMachine {
    GameMachine(PosixFiles& files, const Places& places, const CodePage& page, Waiter& waiter)
        : settings(files, places.SettingsFile()),
          prefix([this, &page] { return page.ToUtf8(settings.GetSetting("Settings", "WinePrefix")); }),
          processes(
              page, waiter, [this] { return settings.GetSetting("Settings", "Runner", "wine"); }, prefix),
          hive(files, places.RegistryFile()),
          registry(hive, files, page, [this] { return settings.GetSetting("Settings", "WinePrefix"); }),
          disks(page, prefix), applications(files, processes, places.SystemDirectory()), files(files) {
        files.drives = [this](std::string_view path) { return prefix.Native(path); };
    }
    ~GameMachine() { files.drives = nullptr; }
    GameMachine(const GameMachine&) = delete;
    GameMachine& operator=(const GameMachine&) = delete;

    Settings settings;
    WinePrefix prefix;
    PosixProcesses processes;
    HiveRegistry hive;
    WineRegistry registry;
    PosixDisks disks;
    SessionApplications applications;

private:
    PosixFiles& files; ///< go by the prefix's drives, like the programs, as long as this is there
};

} // namespace ombrin

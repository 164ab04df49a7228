// Games that the server sets up: found in the registry, or by a search through the fixed disks.
#pragma once

#include "launch/direct_ip_launch.h"
#include "launch/finding_game.h"
#include "lobby/auto_start.h"
#include "platform/disks.h"
#include "platform/registry.h"
#include "platform/waiter.h"

#include <string>

namespace ombrin {

class Discovery {
public:
    Discovery(Desk desk, FindingGame& dialog, AutoStart& autoStart, Disks& disks, Registry& registry, Waiter& waiter)
        : desk(desk), dialog(dialog), autoStart(autoStart), disks(disks), registry(registry), waiter(waiter),
          records(desk.settings, desk.profile) {}

    /// `<game>;<exe>;`: finds the executable, with the user's consent where that takes a search, and stores it. A
    /// blocking search, during which the window is painted.
    void SetDirectIPGame(std::string_view payload);

private:
    std::string Search(std::string_view executable);
    std::string FindFile(const std::string& root, std::string_view fileName);

    Desk desk;
    FindingGame& dialog;
    AutoStart& autoStart;
    Disks& disks;
    Registry& registry;
    Waiter& waiter;
    GameRecords records;
};

} // namespace ombrin

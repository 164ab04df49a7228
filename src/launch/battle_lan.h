// Starting the outside program that joins the machines of a room into one network for games that know no other.
#pragma once

#include "lobby/desk.h"
#include "platform/local_files.h"
#include "platform/processes.h"

#include <string>

namespace ombrin {

class BattleLan {
public:
    /// Milliseconds that the program is given after its key.
    static constexpr long kWait = 4'000;

    BattleLan(Desk desk, Processes& processes, LocalFiles& files, std::string systemDirectory)
        : desk(desk), processes(processes), files(files), systemDirectory(std::move(systemDirectory)) {}

    /// Writes the addresses of the room's users, starts the program and presses its key. A blocking wait.
    void LaunchUsingBattleLAN(const RowList& roomUsers);

private:
    Desk desk;
    Processes& processes;
    LocalFiles& files;
    std::string systemDirectory;
};

} // namespace ombrin

#include "launch/discovery.h"

#include "foundation/text.h"
#include "launch/game_paths.h"
#include "launch/trust.h"
#include "session/wire/codec.h"

namespace ombrin {

void Discovery::SetDirectIPGame(std::string_view payload) {
    desk.trap(__func__, [&] {
        desk.TraceMessage("setting auto-start for DIP games");
        if (payload.empty()) {
            desk.trap.log.LogError("Error: no data in SetDirectIPGame().", false);
            return;
        }
        const std::string game(GetCommand(payload, kFieldEnd)), executable(GetCommand(payload, kFieldEnd));
        if (game.empty() || !IsBareName(executable)) {
            desk.trap.log.LogError("Error: the server names no game, or a file by more than its name.", false);
            return;
        }
        if (FileOf(records.GameFile(game)) == executable) return;
        std::string path = clsDIPServerLaunch::CheckRegistryForDirectIPGame(registry, executable);
        if (path.empty()) {
            if (desk.messages.boxes.Show("The server would like to set this game to auto-start.  It will attempt to "
                                         "locate this game on your hard drive, this could take a few minutes.  Would "
                                         "you like to continue?",
                                         kUsualTitle, BoxButtons::YesNo) != BoxResult::Yes)
                return;
            path = Search(executable);
            dialog.Hide();
        }
        if (path.empty()) {
            desk.messages.boxes.ShowPlain(
                "This game does not seem to be installed on your system.  Could not set auto-start.");
            return;
        }
        records.SaveGameFile(game, path);
        records.SaveUsesDirectPlay(game, false);
        autoStart.CheckAutoStart();
    });
}

std::string Discovery::Search(std::string_view executable) {
    for (const std::string& drive : disks.FixedDisks())
        if (std::string path = FindFile(drive, executable); !path.empty()) return path;
    return {};
}

/// Level by level, so that of two copies the one nearer to the root is found.
std::string Discovery::FindFile(const std::string& root, std::string_view fileName) {
    try {
        dialog.Show();
    } catch (const RuntimeError&) { // a search under a modal form goes on unseen
    }
    std::string queue = root; // paths with a closing separator, each followed by a NUL
    if (!queue.ends_with('/') && !queue.ends_with('\\')) queue += SeparatorOf(root);
    queue += '\0';
    for (std::size_t front = 0; front < queue.size();) {
        const std::string path = queue.substr(front, queue.find('\0', front) - front);
        front += path.size() + 1;
        constexpr std::size_t kWaste = std::size_t{1} << 20U; // the searched part is given back now and then
        if (front > kWaste) {
            queue.erase(0, front);
            front = 0;
        }
        std::string match;
        for (const Disks::Entry& entry : disks.List(path)) {
            if (entry.isDirectory && !entry.isHidden) {
                ((queue += path) += entry.name) += path.back();
                dialog.txtFindDir.SetCaption(path + entry.name);
                queue += '\0';
            }
            if (match.empty() && !entry.isDirectory && EqualIgnoringCase(entry.name, fileName)) match = entry.name;
        }
        waiter.Breathe();
        if (!match.empty()) return path + match;
    }
    return {};
}

} // namespace ombrin

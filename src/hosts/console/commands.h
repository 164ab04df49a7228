// The commands of the console, one JSON object a line, each with one reply.
#pragma once

#include "foundation/code_page.h"
#include "hosts/console/console_loop.h"
#include "hosts/console/world.h"
#include "session/game_lobby.h"
#include "session/main_lobby.h"

#include <memory>
#include <string>

namespace ombrin::console {

class Commands : public CommandRunner {
public:
    Commands(GameLobby& client, MainLobby& entry, ConsoleLoop& loop, World world, const CodePage& page)
        : client(client), entry(entry), directPlay(client.DirectPlayForHost()), loop(loop), world(world), page(page) {}

    std::string Run(const std::string& line) override;
    std::string ReplyWhileWaiting() override;

    struct Table; ///< the commands by name

private:
    friend struct Table;

    GameLobby& client;
    MainLobby& entry;
    clsDirectPlay directPlay;
    ConsoleLoop& loop;
    World world;
    const CodePage& page;
    std::string current;      ///< name of the command that runs
    std::shared_ptr<int> key; ///< where it is a key press: the key, 0 once it was swallowed
    enum class Shown { Nothing, GameLobby, MainLobby } shown = Shown::Nothing;
};

} // namespace ombrin::console

#include <ombrin/cls_direct_play.h>

#include "hosts/library/game_lobby_parts.h"
#include "hosts/library/guarded.h"

namespace ombrin::host {

struct clsDirectPlay::Parts {
    ombrin::clsDirectPlay object;
};

clsDirectPlay::clsDirectPlay(GameLobby& lobby) : parts(new Parts{lobby.Inside().control.DirectPlayForHost()}) {}

clsDirectPlay::~clsDirectPlay() = default;

GameLobby::Handle clsDirectPlay::dx8() const { return parts->object.dx8.get(); }
GameLobby::Handle clsDirectPlay::DP8LobbyClient() const { return parts->object.DP8LobbyClient.get(); }

void clsDirectPlay::GetDirectPlay8Games() {
    Guarded([&] { parts->object.GetDirectPlay8Games(); });
}

void clsDirectPlay::LaunchDP8Game() {
    Guarded([&] { parts->object.LaunchDP8Game(); });
}

} // namespace ombrin::host

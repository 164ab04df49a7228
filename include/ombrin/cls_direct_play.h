// DirectPlay 8 for a host program, beside the client's own launches.
#pragma once

#include <ombrin/game_lobby.h>

namespace ombrin::host {

class OMBRIN_API clsDirectPlay : public Object {
public:
    explicit clsDirectPlay(GameLobby& lobby); ///< whose session it is; it outlives this object
    ~clsDirectPlay() override;

    GameLobby::Handle dx8() const; ///< null before the first call, as the next one
    GameLobby::Handle DP8LobbyClient() const;
    void GetDirectPlay8Games(); ///< reads the programs of the TCP/IP provider, and hands nothing back
    void LaunchDP8Game();       ///< connects a peer straight to the room's creator

    std::string_view ClassName() const override { return "clsDirectPlay"; }

private:
    struct OMBRIN_INSIDE Parts;
    std::unique_ptr<Parts> parts;
};

} // namespace ombrin::host

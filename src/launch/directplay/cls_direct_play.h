// DirectPlay 8 for a host program; nothing in the client calls it.
#pragma once

#include "foundation/trap.h"
#include "launch/directplay/service.h"
#include "session/wire/session.h"

namespace ombrin {

class clsDirectPlay {
public:
    /// Everything given outlives it. Host and player are those of the session.
    clsDirectPlay(directplay::Service& service, const Session& session, Trap& trap)
        : service(service), session(session), trap(trap) {}

    /// Reads the programs of the TCP/IP provider, and hands nothing back.
    void GetDirectPlay8Games();
    /// Connects a peer straight to the room's creator, without the lobby client.
    void LaunchDP8Game();

    std::unique_ptr<directplay::DirectX8> dx8;

private:
    directplay::Service& service;
    const Session& session;
    Trap& trap;
    std::unique_ptr<directplay::frmDirectPlay> handler;

public:
    std::unique_ptr<directplay::DirectPlay8LobbyClient> DP8LobbyClient; ///< tells the handler, so it goes first
};

} // namespace ombrin

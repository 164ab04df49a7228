// All areas of a session, in the order of need: each knows those above it alone.
#pragma once

#include "lobby/buddies.h"
#include "lobby/chat.h"
#include "lobby/ignored_users.h"
#include "lobby/lobby_directory.h"
#include "lobby/users.h"
#include "session/keep_alive.h"
#include "session/logon.h"
#include "session/server_messages.h"

namespace ombrin {

/// What the areas need beyond the desk.
struct AreaNeeds {
    Sound& sound;
    Clipboard& clipboard;
    const TextMeasure& measure;
    Alarms& alarms;
    LogonDialogs dialogs;
    LobbyFilter& lobbyFilter;
    const Layout& layout;
    std::function<void()> closeClient;
};

struct Areas {
    Areas(Desk desk, const AreaNeeds& needs)
        : session(desk.session), sound(needs.sound), general(desk), ignored(desk),
          chat(desk, ignored, needs.sound, needs.clipboard, needs.measure), buddies(desk),
          lobbies(desk, needs.dialogs.connection, needs.lobbyFilter, needs.dialogs.mainLobby),
          users(desk, ignored, lobbies, buddies, needs.dialogs.connection, needs.sound), connector(desk, needs.alarms),
          logon(desk, needs.dialogs, connector, needs.layout, needs.closeClient), keepAlive(desk) {}

    Session& session;
    Sound& sound;
    ServerMessages general;
    IgnoredUsers ignored;
    Chat chat;
    Buddies buddies;
    LobbyDirectory lobbies;
    Users users;
    Connector connector;
    Logon logon;
    KeepAlive keepAlive;
};

} // namespace ombrin

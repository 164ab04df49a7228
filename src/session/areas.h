// All areas of a session, in the order of need: each knows those above it alone.
#pragma once

#include "launch/configuration.h"
#include "launch/discovery.h"
#include "launch/launcher.h"
#include "lobby/buddies.h"
#include "lobby/chat.h"
#include "lobby/ignored_users.h"
#include "lobby/lobby_directory.h"
#include "lobby/pinger.h"
#include "lobby/private_messages.h"
#include "lobby/rooms.h"
#include "lobby/users.h"
#include "session/keep_alive.h"
#include "session/logon.h"
#include "session/server_messages.h"
#include "ui/banners.h"
#include "update/update.h"

namespace ombrin {

/// What the areas need beyond the desk.
struct AreaNeeds {
    Sound& sound;
    Clipboard& clipboard;
    const TextMeasure& measure;
    Alarms& alarms;
    Pings& pings;
    Notifier& notifier;
    Browser& browser;
    Processes& processes;
    Registry& registry;
    directplay::Service& directPlay;
    Disks& disks;
    Waiter& waiter;
    LogonDialogs dialogs;
    RoomDialogs roomDialogs;
    PMDialog& pmDialog;
    ConfigurationDialogs configurationDialogs;
    PauseAV& pauseAV;
    FindingGame& findingGame;
    TextColours& textColours;
    LobbyFilter& lobbyFilter;
    const Layout& layout;
    const std::string& roomWord;
    std::string appPath, systemDirectory;
    std::function<void()> closeClient;
    LocalFiles& localFiles;
    UpdateServices update;
};

struct Areas {
    Areas(Desk desk, const AreaNeeds& needs)
        : session(desk.session), sound(needs.sound), general(desk), ignored(desk), position(desk.view, desk.trap.log),
          frame(desk.view.RoomBorder, needs.roomWord), pinger(desk, needs.pings), notices(desk, needs.notifier),
          chat(desk, ignored, needs.sound, needs.clipboard, needs.measure),
          pm(desk, needs.pmDialog, ignored, chat, notices, needs.sound, needs.appPath),
          buddies(desk, pm, notices, needs.sound), rooms(desk, needs.roomDialogs, position, frame, pinger, needs.sound),
          autoStart(desk), banners(desk, needs.browser, needs.registry),
          lobbies(desk, autoStart, needs.dialogs.connection, needs.lobbyFilter, needs.dialogs.mainLobby),
          users(desk, ignored, lobbies, rooms, buddies, needs.dialogs.connection, needs.sound),
          configuration(desk, needs.configurationDialogs, autoStart, lobbies, needs.textColours, needs.processes),
          battleLan(desk, needs.processes, needs.localFiles, needs.systemDirectory),
          directPlay8(desk, needs.directPlay, needs.registry, needs.processes),
          directPlay(desk, directPlay8, autoStart,
                     {needs.directPlay, needs.processes, needs.registry, needs.roomDialogs.newRoom}),
          launcher(desk, needs.pauseAV,
                   {autoStart,
                    position,
                    battleLan,
                    directPlay,
                    {[this] { banners.Suspend(); }, [this] { banners.Resume(); }}},
                   needs.processes, needs.clipboard, needs.alarms),
          discovery(desk, needs.findingGame, autoStart, needs.disks, needs.registry, needs.waiter),
          connector(desk, needs.alarms), logon(desk, needs.dialogs, connector, needs.layout, needs.closeClient),
          keepAlive(desk, {ignored, position, connector, logon, banners}, needs.dialogs, frame),
          update(desk, needs.update) {}

    Session& session;
    Sound& sound;
    ServerMessages general;
    IgnoredUsers ignored;
    RoomPosition position;
    RoomFrame frame;
    Pinger pinger;
    Notices notices;
    Chat chat;
    PrivateMessages pm;
    Buddies buddies;
    Rooms rooms;
    AutoStart autoStart;
    Banners banners;
    LobbyDirectory lobbies;
    Users users;
    Configuration configuration;
    BattleLan battleLan;
    DirectPlay8 directPlay8;
    DirectPlay directPlay;
    Launcher launcher;
    Discovery discovery;
    Connector connector;
    Logon logon;
    KeepAlive keepAlive;
    Update update;
};

} // namespace ombrin

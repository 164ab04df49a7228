// The whole client on Qt's loop: this machine's services, the core, the windows. For the program, and for the widget
// that other programs embed.
#pragma once

#include "hosts/desktop/banner_browser.h"
#include "hosts/desktop/board.h"
#include "hosts/desktop/connection_bar.h"
#include "hosts/desktop/main_window.h"
#include "hosts/desktop/qt_pictures.h"
#include "hosts/desktop/qt_services.h"
#include "hosts/desktop/windows.h"
#include "hosts/game_machine.h"
#include "launch/directplay/registry_service.h"
#include "platform/notifier.h"
#include "platform/posix/client_start.h"
#include "platform/posix/clock.h"
#include "platform/posix/home.h"
#include "platform/posix/posix_components.h"
#include "platform/posix/posix_local_files.h"
#include "platform/posix/posix_network.h"
#include "platform/posix/posix_pings.h"
#include "platform/sodium/sodium_integrity.h"

namespace ombrin::desktop {

/// Holds the client's files for its life; home and notifier have to last as long. There is a QApplication, whose style
/// is set here. Raises what HoldClientFiles raises.
struct DesktopClient {
    DesktopClient(ClientHome& home, Notifier& notifier);

    const FileLock clientFiles;
    Settings settings;
    const bool dressed; ///< before the first control
    const SystemClock clock;
    EventLoop events{clock};
    DesktopLoop loop{events};
    PosixNetwork network{events};
    QtSound sound;
    QtClipboard clipboard;
    PosixPings pings{loop};
    PosixLocalFiles localFiles;
    QtPictures pictures;
    PosixComponents components;
    SodiumIntegrity integrity;
    GameMachine machine;
    directplay::RegistryService directPlay{machine.registry, machine.applications};
    QtOpener opener;
    BannerBrowser browser;
    const QtMeasure measure;
    GameLobby client;
    Board board;
    MainWindow window{client, board};
    Windows windows{client, board, window};
    const ConnectionBar bar{client, board, events, window};
};

} // namespace ombrin::desktop

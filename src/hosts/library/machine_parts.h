// What a machine of the library consists of: the real services, on the library's own loop or a host's.
#pragma once

#include "hosts/game_machine.h"
#include "launch/directplay/registry_service.h"
#include "platform/picture_files.h"
#include "platform/posix/client_start.h"
#include "platform/posix/clock.h"
#include "platform/posix/end_signals.h"
#include "platform/posix/event_loop.h"
#include "platform/posix/home.h"
#include "platform/posix/posix_components.h"
#include "platform/posix/posix_desktop.h"
#include "platform/posix/posix_local_files.h"
#include "platform/posix/posix_network.h"
#include "platform/posix/posix_pings.h"
#include "platform/posix/share.h"
#include "platform/recording/recording_desktop.h"
#include "platform/sodium/sodium_integrity.h"
#include "session/game_lobby.h"

#include <ombrin/machine.h>
#include <vector>

namespace ombrin::host {

class GameLobby;

/// A host shows no pages of the web.
struct NoBrowser : Browser {
    void Navigate(std::string_view) override {}
};

struct Machine::Parts final : Waiter {
    explicit Parts(MachineOptions given);

    void RunUntil(const bool& ended) override;
    void Block(Milliseconds length) override;
    void Breathe() override;
    bool Step();

    MachineOptions options;
    ClientHome home{options.home.empty() ? std::nullopt : std::optional(options.home)};
    const CodePage& page = home.page;
    FileLock clientFiles = HoldClientFiles(home.places, home.files);
    SystemClock clock;
    EventLoop loop{clock};
    PosixNetwork network{loop};
    PosixClipboard clipboard{page};
    PosixPings pings{*this};
    NoNotifier notifier;
    NoBrowser browser;
    PosixLocalFiles localFiles{page};
    PictureFiles pictures{localFiles};
    PosixComponents components{page};
    SodiumIntegrity integrity;
    GameMachine games{home.files, home.places, page, *this};
    PosixSound sound{{home.root + "/app", ShareFolder()}, games.settings, page, *this};
    directplay::RegistryService directPlay{games.registry, games.applications};
    PosixOpener opener{page};
    recording::FixedMeasure measure; ///< nothing is painted

    Platform ForClient();

    std::optional<EndSignals> signals;
    bool ending = false;
    std::vector<ModalStack*> stacks; ///< of the controls that are there
    std::vector<GameLobby*> lobbies; ///< in the order of their making
};

} // namespace ombrin::host

#include "hosts/desktop/desktop_client.h"

#include "hosts/desktop/look.h"
#include "platform/posix/share.h"

#include <QApplication>

namespace ombrin::desktop {

namespace {

bool Dress(Settings& settings) {
    Look::Install(*qApp, Look::Wishes::Of(settings));
    return true;
}

} // namespace

DesktopClient::DesktopClient(ClientHome& home, Notifier& notifier)
    : clientFiles(HoldClientFiles(home.places, home.files)), settings(home.files, home.places.SettingsFile()),
      dressed(Dress(settings)), sound({home.root + "/app", ShareFolder()}, settings, home.page, loop),
      clipboard(home.page), localFiles(home.page), pictures(home.page), components(home.page),
      machine(home.files, home.places, home.page, loop), opener(home.page), browser(home.page, opener),
      measure(Look::ChatFont(), home.page), client({network,    events,        clock,
                                                    home.files, localFiles,    sound,
                                                    clipboard,  pings,         notifier,
                                                    browser,    pictures,      machine.processes,
                                                    components, integrity,     machine.registry,
                                                    directPlay, machine.disks, opener,
                                                    measure,    loop,          [this](bool held) { events.Hold(held); },
                                                    home.places}),
      board(loop, client.Input(), home.page) {
    loop.Attach(client.Stack(), [this] { board.Schedule(); });
    browser.Attach(board, client.MainView().BannerAd, client.Trace());
}

} // namespace ombrin::desktop

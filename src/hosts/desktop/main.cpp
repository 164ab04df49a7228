// OmbrinExe: the client that a person starts.
#include "foundation/text.h"
#include "hosts/desktop/banner_browser.h"
#include "hosts/desktop/board.h"
#include "hosts/desktop/bus_announcer.h"
#include "hosts/desktop/connection_bar.h"
#include "hosts/desktop/look.h"
#include "hosts/desktop/main_window.h"
#include "hosts/desktop/qt_pictures.h"
#include "hosts/desktop/qt_services.h"
#include "hosts/desktop/spoken.h"
#include "hosts/desktop/windows.h"
#include "hosts/game_machine.h"
#include "launch/directplay/registry_service.h"
#include "platform/posix/client_start.h"
#include "platform/posix/clock.h"
#include "platform/posix/end_signals.h"
#include "platform/posix/home.h"
#include "platform/posix/language_file.h"
#include "platform/posix/posix_components.h"
#include "platform/posix/posix_local_files.h"
#include "platform/posix/posix_network.h"
#include "platform/posix/posix_pings.h"
#include "platform/posix/share.h"
#include "platform/sodium/sodium_integrity.h"

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QMessageBox>
#include <algorithm>
#include <clocale>
#include <cstdio>

namespace ombrin::desktop {

namespace {

/// A client without it works; what is in its way stands in the log.
void PlaceLanguageFile(const Places& places, PosixFiles& files, Log& log) {
    try {
        ombrin::PlaceLanguageFile(ShareFolder(), places, files);
    } catch (const std::exception& problem) {
        log.LogError(Join("the language file cannot be put in place: ", problem.what()), false);
    }
}

/// What is answered on a terminal, too, where there is no display.
bool IsQuestion(std::string_view argument) {
    return argument == "-h" || argument == "--help" || argument == "--version";
}

std::optional<int> Parse(int argc, char** argv, std::optional<std::string>& home) {
    CLI::App app{"The client of the game-matchmaking service Ardvelle.", "OmbrinExe"};
    app.set_version_flag("--version", "OmbrinExe " OMBRIN_VERSION, "Print the version and exit");
    app.add_option("--home", home, "Folder of the client's files; made when missing")->type_name("DIR");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& problem) {
        return app.exit(problem) == 0 ? 0 : 2;
    }
    return std::nullopt;
}

int Run(QApplication& application, const std::optional<std::string>& home) {
    const std::string root = HomeRoot(home);
    const CodePage& page = CodePageOfStore(root);
    PosixFiles files(page);
    const Places places = PreparePlaces(root, page, files);
    ExportHome(root);
    FinishHandOverFirst(places, files);
    const FileLock clientFiles = HoldClientFiles(places, files);

    Settings settings(files, places.SettingsFile());
    Look::Install(application, Look::Wishes::Of(settings));
    InstallSpoken();
    const SystemClock clock;
    EventLoop events(clock);
    DesktopLoop loop(events);
    PosixNetwork network(events);
    QtSound sound({root + "/app", ShareFolder()}, settings, page, loop);
    QtClipboard clipboard(page);
    PosixPings pings(loop);
    QPointer<MainWindow> front; // once it is there
    BusAnnouncer announcer([&front] {
        if (front != nullptr) BringUp(*front);
    });
    DesktopNotifier notifier(page, announcer);
    PosixLocalFiles localFiles(page);
    QtPictures pictures(page);
    PosixComponents components(page);
    SodiumIntegrity integrity;
    GameMachine machine(files, places, page, loop);
    directplay::RegistryService directPlay(machine.registry, machine.applications);
    QtOpener opener(page);
    BannerBrowser browser(page, opener);
    const QtMeasure measure(Look::ChatFont(), page);

    GameLobby client({network,    events,        clock,
                      files,      localFiles,    sound,
                      clipboard,  pings,         notifier,
                      browser,    pictures,      machine.processes,
                      components, integrity,     machine.registry,
                      directPlay, machine.disks, opener,
                      measure,    loop,          [&](bool held) { events.Hold(held); },
                      places});
    // The event only notes the wish, so that the raising routine finishes its steps.
    client.CloseClient = [&] { events.Post([&] { client.Stack().RequestEnd(); }); };
    PlaceLanguageFile(places, files, client.Trace());
    Board board(loop, client.Input(), page);
    loop.Attach(client.Stack(), [&] { board.Schedule(); });
    {
        MainWindow window(client, board);
        Windows windows(client, board, window);
        const ConnectionBar bar(client, board, events, window);
        front = &window;
        notifier.Attach(window);
        browser.Attach(board, client.MainView().BannerAd, client.Trace());
        const EndSignals signals(events, [&] { client.Stack().RequestEnd(); });
        window.Opens([&] { events.Post([&] { client.UserControl_Show(std::nullopt); }); });
        loop.RunToTheEnd();
        try {
            client.UserControl_Terminate();
        } catch (const ProgramEnding&) { // a box that nobody can answer any more
        }
    }
    return 0;
}

} // namespace

} // namespace ombrin::desktop

int main(int argc, char** argv) {
    std::setlocale(LC_TIME, "");
    std::optional<std::string> home;
    if (std::any_of(argv, argv + argc, ombrin::desktop::IsQuestion))
        if (const auto status = ombrin::desktop::Parse(argc, argv, home)) return *status;
    ombrin::EndSignals::Block();          // before Qt has threads of its own
    QApplication application(argc, argv); // which takes Qt's own options away
    if (const auto status = ombrin::desktop::Parse(argc, argv, home)) return *status;
    QCoreApplication::setApplicationName(QStringLiteral("ombrin"));
    QCoreApplication::setOrganizationName(QStringLiteral("ombrin"));
    QCoreApplication::setApplicationVersion(QStringLiteral(OMBRIN_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("example.ardvelle.Ombrin"));
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        return ombrin::desktop::Run(application, home);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "OmbrinExe: %s\n", error.what());
        QMessageBox::critical(nullptr, QStringLiteral("Ombrin"), QString::fromUtf8(error.what()));
        return 1;
    }
}

// OmbrinExe: the client that a person starts.
#include "foundation/text.h"
#include "hosts/desktop/bus_announcer.h"
#include "hosts/desktop/desktop_client.h"
#include "hosts/desktop/spoken.h"
#include "platform/posix/end_signals.h"
#include "platform/posix/language_file.h"
#include "platform/posix/share.h"

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

int Run(const std::optional<std::string>& asked) {
    ClientHome home(asked);
    FinishHandOverFirst(home.places, home.files);
    InstallSpoken();
    QPointer<MainWindow> front; // once it is there
    BusAnnouncer announcer([&front] {
        if (front != nullptr) BringUp(*front);
    });
    DesktopNotifier notifier(home.page, announcer);

    DesktopClient desktop(home, notifier);
    GameLobby& client = desktop.client;
    EventLoop& events = desktop.events;
    front = &desktop.window;
    notifier.Attach(desktop.window);
    PlaceLanguageFile(home.places, home.files, client.Trace());
    // The event only notes the wish, so that the raising routine finishes its steps.
    client.CloseClient = [&] { events.Post([&] { client.Stack().RequestEnd(); }); };
    const EndSignals signals(events, [&] { client.Stack().RequestEnd(); });
    desktop.window.Opens([&] { events.Post([&] { client.UserControl_Show(std::nullopt); }); });
    desktop.loop.RunToTheEnd();
    try {
        client.UserControl_Terminate();
    } catch (const ProgramEnding&) { // a box that nobody can answer any more
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
        return ombrin::desktop::Run(home);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "OmbrinExe: %s\n", error.what());
        QMessageBox::critical(nullptr, QStringLiteral("Ombrin"), QString::fromUtf8(error.what()));
        return 1;
    }
}

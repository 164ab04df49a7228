// OmbrinExe: the client that a person starts.
#include "foundation/text.h"
#include "hosts/desktop/bus_announcer.h"
#include "hosts/desktop/desktop_client.h"
#include "hosts/desktop/own_client.h"
#include "hosts/desktop/qt_start.h"
#include "hosts/desktop/spoken.h"
#include "platform/posix/client_start.h"
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

/// What an installer would leave. A client without it works; what is in its way stands in the log.
void FillHome(ClientHome& home, Log& log) {
    const auto attempt = [&log](std::string_view problem, const auto& step) {
        try {
            step();
        } catch (const std::exception& reason) {
            log.LogError(Join(problem, reason.what()), false);
        }
    };
    attempt("the language file cannot be put in place: ",
            [&] { PlaceLanguageFile(ShareFolder(), home.places, home.files); });
    attempt("updates of the client have no place: ", [&] { SettleOwnClient(home); });
}

std::optional<int> Parse(int argc, char** argv, std::optional<std::string>& home) {
    CLI::App app{"The client of the game-matchmaking service Ardvelle.", "OmbrinExe"};
    app.set_version_flag("--version", "OmbrinExe " OMBRIN_VERSION, "Print the version and exit");
    app.add_option("--home", home, "Folder of the client's files; made when missing")->type_name("DIR");
    try {
        std::vector<std::string> words = WithoutQtOptions(argc, argv);
        std::reverse(words.begin(), words.end());
        words.pop_back(); // the program's name
        app.parse(std::move(words));
    } catch (const CLI::ParseError& problem) {
        return app.exit(problem) == 0 ? 0 : 2;
    }
    return std::nullopt;
}

int Run(const std::optional<std::string>& asked, char* const* words) {
    ClientHome home(asked);
    ExportHome(home.root); // before this process may become another program
    FinishHandOverFirst(home.places, home.files);
    GiveWayToNewer(home, words);
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
    FillHome(home, client.Trace());
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
    using namespace ombrin::desktop;
    std::setlocale(LC_TIME, "");
    std::optional<std::string> home;
    if (const auto status = Parse(argc, argv, home)) return *status;
    std::vector<char*> words(argv, argv + argc + 1); // before Qt takes its own away
    ombrin::EndSignals::Block();                     // before Qt has threads of its own
    std::optional<NeedsDisplay> start("OmbrinExe");
    QApplication application(argc, argv);
    start.reset();
    QCoreApplication::setApplicationName(QStringLiteral("ombrin"));
    QCoreApplication::setOrganizationName(QStringLiteral("ombrin"));
    QCoreApplication::setApplicationVersion(QStringLiteral(OMBRIN_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("example.ardvelle.Ombrin"));
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        return Run(home, words.data());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "OmbrinExe: %s\n", error.what());
        ombrin::EndSignals::Unblock();
        QMessageBox::critical(nullptr, QStringLiteral("Ombrin"), QString::fromUtf8(error.what()));
        return 1;
    }
}

#include <ombrin/qt/lobby_widget.h>

#include "foundation/runtime_error.h"
#include "hosts/desktop/banner_browser.h"
#include "hosts/desktop/board.h"
#include "hosts/desktop/connection_bar.h"
#include "hosts/desktop/look.h"
#include "hosts/desktop/main_window.h"
#include "hosts/desktop/qt_pictures.h"
#include "hosts/desktop/qt_services.h"
#include "hosts/desktop/windows.h"
#include "hosts/game_machine.h"
#include "launch/directplay/registry_service.h"
#include "platform/posix/client_start.h"
#include "platform/posix/clock.h"
#include "platform/posix/home.h"
#include "platform/posix/posix_components.h"
#include "platform/posix/posix_local_files.h"
#include "platform/posix/posix_network.h"
#include "platform/posix/posix_pings.h"
#include "platform/posix/share.h"
#include "platform/sodium/sodium_integrity.h"

#include <QApplication>
#include <QVBoxLayout>

namespace ombrin::qt {

using namespace ombrin::desktop;

struct LobbyWidget::Parts {
    explicit Parts(const QString& home)
        : root(HomeRoot(home.isEmpty() ? std::nullopt : std::optional(home.toStdString()))) {
        ExportHome(root);
        loop.Attach(client.Stack(), [this] { board.Schedule(); });
        browser.Attach(board, client.MainView().BannerAd, client.Trace());
    }

    const std::string root;
    const CodePage& page = CodePageOfStore(root);
    PosixFiles files{page};
    const Places places = PreparePlaces(root, page, files);
    const FileLock clientFiles = HoldClientFiles(places, files);
    Settings settings{files, places.SettingsFile()};
    const bool dressed = (Look::Install(*qApp, Look::Wishes::Of(settings)), true); ///< before the first control
    const SystemClock clock;
    EventLoop events{clock};
    DesktopLoop loop{events};
    PosixNetwork network{events};
    QtSound sound{{root + "/app", ShareFolder()}, settings, page, loop};
    QtClipboard clipboard{page};
    PosixPings pings{loop};
    NoNotifier notifier; ///< what is told to a person who looks elsewhere is the host's affair
    PosixLocalFiles localFiles{page};
    QtPictures pictures{page};
    PosixComponents components{page};
    SodiumIntegrity integrity;
    GameMachine machine{files, places, page, loop};
    directplay::RegistryService directPlay{machine.registry, machine.applications};
    QtOpener opener{page};
    BannerBrowser browser{page, opener};
    const QtMeasure measure{Look::ChatFont(), page};
    GameLobby client{{network,    events,        clock,
                      files,      localFiles,    sound,
                      clipboard,  pings,         notifier,
                      browser,    pictures,      machine.processes,
                      components, integrity,     machine.registry,
                      directPlay, machine.disks, opener,
                      measure,    loop,          [this](bool held) { events.Hold(held); },
                      places}};
    Board board{loop, client.Input(), page};
    MainWindow window{client, board};
    Windows windows{client, board, window};
    const ConnectionBar bar{client, board, events, window};
};

LobbyWidget::LobbyWidget(const QString& home, QWidget* parent) : QWidget(parent), parts(std::make_unique<Parts>(home)) {
    parts->client.CloseClient = [this] {
        if (CloseClient) CloseClient();
    };
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&parts->window);
    parts->window.Populate();
}

LobbyWidget::~LobbyWidget() {
    RequestEnd();
    try {
        parts->client.UserControl_Terminate();
    } catch (const ProgramEnding&) { // a box that nobody can answer any more
    }
}

void LobbyWidget::Start(const QString& userData) {
    std::optional<std::string> record;
    if (!userData.isNull()) {
        record = parts->page.FromUtf8(userData.toStdString());
        if (!record) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    parts->events.Post([this, record] { parts->client.UserControl_Show(record); });
}

void LobbyWidget::RequestEnd() { parts->client.Stack().RequestEnd(); }

QString LobbyWidget::CurrentLobby() const {
    return QString::fromStdString(parts->page.ToUtf8(parts->client.Marks().m_CurrentLobby));
}

QStringList LobbyWidget::UsersOfLobby() const {
    QStringList users;
    const RowList& rows = parts->client.MainView().UserList.rows;
    rows.ForEach([&](RowId row) { users << QString::fromStdString(parts->page.ToUtf8(rows.Text(row))); });
    return users;
}

bool LobbyWidget::IsConnected() const { return parts->client.Connection().IsConnected(); }

} // namespace ombrin::qt

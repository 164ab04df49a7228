#include <ombrin/qt/lobby_widget.h>

#include "foundation/runtime_error.h"
#include "hosts/desktop/desktop_client.h"
#include "platform/posix/client_start.h"

#include <QVBoxLayout>

namespace ombrin::qt {

using namespace ombrin::desktop;

struct LobbyWidget::Parts {
    explicit Parts(const QString& asked) : home(asked.isEmpty() ? std::nullopt : std::optional(asked.toStdString())) {
        ExportHome(home.root);
    }

    ClientHome home;
    NoNotifier notifier; ///< what is told to a person who looks elsewhere is the host's affair
    DesktopClient desktop{home, notifier};
};

LobbyWidget::LobbyWidget(const QString& home, QWidget* parent) : QWidget(parent), parts(std::make_unique<Parts>(home)) {
    parts->desktop.client.CloseClient = [this] {
        if (CloseClient) CloseClient();
    };
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&parts->desktop.window);
    parts->desktop.window.Populate();
}

LobbyWidget::~LobbyWidget() {
    RequestEnd();
    try {
        parts->desktop.client.UserControl_Terminate();
    } catch (const ProgramEnding&) { // a box that nobody can answer any more
    }
}

void LobbyWidget::Start(const QString& userData) {
    std::optional<std::string> record;
    if (!userData.isNull()) {
        record = parts->home.page.FromUtf8(userData.toStdString());
        if (!record) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    parts->desktop.events.Post([this, record] { parts->desktop.client.UserControl_Show(record); });
}

void LobbyWidget::RequestEnd() { parts->desktop.client.Stack().RequestEnd(); }

QString LobbyWidget::CurrentLobby() const {
    return QString::fromStdString(parts->home.page.ToUtf8(parts->desktop.client.Marks().m_CurrentLobby));
}

QStringList LobbyWidget::UsersOfLobby() const {
    QStringList users;
    const RowList& rows = parts->desktop.client.MainView().UserList.rows;
    rows.ForEach([&](RowId row) { users << QString::fromStdString(parts->home.page.ToUtf8(rows.Text(row))); });
    return users;
}

bool LobbyWidget::IsConnected() const { return parts->desktop.client.Connection().IsConnected(); }

} // namespace ombrin::qt

#include "hosts/desktop/connection_bar.h"

#include "hosts/desktop/look.h"
#include "hosts/desktop/own_texts.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

namespace ombrin::desktop {

namespace {

constexpr int kGap = 6; ///< pixels to what is around it

bool IsModifier(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
        return true;
    default:
        return false;
    }
}

} // namespace

ConnectionBar::ConnectionBar(GameLobby& client, Board& board, Alarms& alarms, QWidget& window)
    : client(client), board(board), alarms(alarms), window(window) {
    board.EachFrame([this] { Look(); });
}

ConnectionBar::~ConnectionBar() { alarms.Cancel(due); }

ConnectionState ConnectionBar::See() const {
    const View& view = client.MainView();
    const Form* top = client.Stack().TopModal();
    // From a view that is disabled for good no way leads back into a lobby.
    return {.made = client.Marks().m_ServerConnected && !view.IsDisabledForGood(),
            .connected = client.Connection().IsConnected(),
            .failed = client.Connection().WhyNot() != ConnectFailure::None,
            .listed = view.lbLobbies.rows.Count() > 0,
            .entered = view.UserList.rows.Count() > 0,
            .enabled = view.Enabled(),
            .front = top == nullptr                      ? Front::View
                     : top == &client.Forms().UsrNmPwIP  ? Front::Logon
                     : top == &client.Forms().Connection ? Front::Connecting
                                                         : Front::Other,
            .lobby = client.Marks().m_CurrentLobby};
}

/// Runs in a frame, where nothing may be put into the client: a step follows behind it.
void ConnectionBar::Look() {
    Show(watch.Look(See(), alarms.Now()));
    alarms.Cancel(due);
    if (const auto when = watch.Due()) due = alarms.At(*when, [this] { board.Schedule(); });
    if (!watch.IsOnTheWay() || std::exchange(goes, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            goes = false;
            Go();
        },
        Qt::QueuedConnection);
}

void ConnectionBar::Show(Trouble trouble) {
    if (trouble == Trouble::None) {
        if (bar != nullptr) bar->hide();
    } else {
        if (bar == nullptr) Make();
        if (trouble != shown) {
            text->setText(Say(trouble == Trouble::Lost ? Own::ConnectionLost : Own::NoAnswer));
            bar->setAccessibleName(text->text());
            bar->show();
            QAccessibleEvent alert(bar, QAccessible::Alert);
            QAccessible::updateAccessibility(&alert);
        }
        Place();
        bar->raise();
    }
    shown = trouble;
}

/// At its first trouble; by then the language has been chosen.
void ConnectionBar::Make() {
    bar = new QFrame(&window);
    bar->setObjectName(QStringLiteral("connectionBar"));
    const Scheme& colours = desktop::Look::Colours();
    bar->setStyleSheet(
        QStringLiteral("QFrame#connectionBar { background: %1; border: 1px solid %2; "
                       "border-radius: 4px; } QLabel { color: %3; }")
            .arg(colours.Shade("alarm").name(), colours.Shade("trouble").name(), colours.Shade("alarmText").name()));
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins(10, 4, 6, 4);
    text = new QLabel(bar);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    line->addWidget(text, 1);
    auto* again = new QPushButton(Say(Own::LogOnAgain), bar);
    auto* hide = new QPushButton(Say(Own::HideBar), bar);
    again->setObjectName(QStringLiteral("logOnAgain"));
    for (QPushButton* button : {again, hide}) {
        button->setMinimumHeight(24);
        line->addWidget(button);
    }
    connect(again, &QPushButton::clicked, this, [this] { LogOnAgain(); });
    connect(hide, &QPushButton::clicked, this, [this] {
        watch.Dismiss();
        board.Schedule();
    });
}

/// Above the headings of the lists, between what stands on both sides of the banner's place.
void ConnectionBar::Place() {
    const View& view = client.MainView();
    const int left = view.ConfigWarning.Where().left + view.ConfigWarning.Where().width + kGap;
    const int room = std::min(window.width(), view.lbAllUsers.Where().left) - kGap - left;
    const QFontMetrics letters(text->font());
    const int whole = bar->sizeHint().width() - text->sizeHint().width() + letters.horizontalAdvance(text->text()) + 8;
    const int width = std::min(room, whole);
    const int height = bar->layout()->heightForWidth(width);
    bar->setGeometry(left + (room - width) / 2, std::max(0, view.LobbiesLabel.Where().top - height - kGap), width,
                     height);
}

void ConnectionBar::LogOnAgain() {
    board.Input([this](UserInput&) -> Refusal {
        // As for any button of the view. A dialog that is open is for the user, and has its own way out.
        if (const Form* top = client.Stack().TopModal()) return "behind " + top->Name();
        watch.GoBack(See());
        QCoreApplication::instance()->installEventFilter(this);
        client.CloseSocket();
        return std::nullopt;
    });
}

void ConnectionBar::Go() {
    const WayStep step = watch.Next(See());
    if (!watch.IsOnTheWay()) QCoreApplication::instance()->removeEventFilter(this);
    switch (step) {
    case WayStep::None:
        return;
    case WayStep::PressConnect:
        return board.Input([this](UserInput& input) { return input.Click(client.Forms().UsrNmPwIP.Connect); });
    case WayStep::EnterLobby: {
        ListBox& lobbies = client.MainView().lbLobbies;
        const RowId row = lobbies.rows.Find(watch.Lobby());
        if (!row) return; // there is no such lobby any more
        const auto position = static_cast<long>(lobbies.rows.PositionOf(row));
        return board.Input([&](UserInput& input) { return input.DoubleClick(lobbies, position); });
    }
    }
}

/// Whoever does something himself is not led any further.
bool ConnectionBar::eventFilter(QObject*, QEvent* event) {
    const bool ofHis = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick ||
                       (event->type() == QEvent::KeyPress && !IsModifier(*static_cast<QKeyEvent*>(event)));
    if (ofHis) {
        watch.Stop();
        QCoreApplication::instance()->removeEventFilter(this);
    }
    return false;
}

} // namespace ombrin::desktop

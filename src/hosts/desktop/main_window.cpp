#include "hosts/desktop/main_window.h"

#include "hosts/desktop/look.h"
#include "hosts/desktop/own_texts.h"
#include "hosts/desktop/spoken.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QScreen>
#include <QSettings>
#include <algorithm>

namespace ombrin::desktop {

namespace {

constexpr int kShownAfter = 150; // ms; a shorter wait would only flicker
constexpr int kTwipsPerPixel = 15;
constexpr int kLargest = 4096; ///< a built-in background is taken as finely as it was drawn

QString PlaceKey(const QScreen& screen) {
    const QSize size = screen.size();
    return QStringLiteral("%1/%2x%3").arg(screen.name()).arg(size.width()).arg(size.height());
}

/// The card that the logon dialog's controls stand on.
class LogonPage : public QWidget {
public:
    LogonPage(const UsrNmPwIP& dialog, QWidget* parent) : QWidget(parent), dialog(dialog) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Look::PaintBackground(painter, rect());
        const Place& place = dialog.LogonImage.Where();
        const int left = (width() - place.width / kTwipsPerPixel) / 2;
        const int bottom = dialog.CloseButton.Where().top + dialog.CloseButton.Where().height + kMargin;
        const int top = place.top / kTwipsPerPixel;
        Look::PaintPanel(painter, QRect(left, top, place.width / kTwipsPerPixel, bottom / kTwipsPerPixel - top));
    }

    /// Tab goes around on the page; the view behind it takes no keys.
    bool focusNextPrevChild(bool next) override {
        QWidget* const from = window()->focusWidget();
        if (!isVisible() || from == nullptr) return QWidget::focusNextPrevChild(next);
        const auto step = [next](QWidget* w) { return next ? w->nextInFocusChain() : w->previousInFocusChain(); };
        for (QWidget* to = step(from); to != from; to = step(to)) {
            if (!isAncestorOf(to) || !to->isVisible() || !to->isEnabled()) continue;
            if ((to->focusPolicy() & Qt::TabFocus) != Qt::TabFocus) continue;
            to->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
        return false;
    }

private:
    static constexpr int kMargin = 24 * kTwipsPerPixel;
    const UsrNmPwIP& dialog;
};

/// Over a view that is disabled for good: it dims it, and keeps the mouse and the keys from what lies behind.
class Veil : public QWidget {
public:
    explicit Veil(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }

protected:
    void paintEvent(QPaintEvent*) override {
        constexpr int kDense = 0xB0; ///< of 255
        QColor colour = Look::Colours().Shade("veil");
        colour.setAlpha(kDense);
        QPainter(this).fillRect(rect(), colour);
    }
    bool focusNextPrevChild(bool) override { return true; }
};

/// Stands before the view until it is known what is shown first, so that nothing is painted for nobody.
class Cover : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Look::PaintBackground(painter, rect());
    }
};

/// A window's edge that is dragged asks for it again and again, and it takes longer to read than to stretch. Qt's cache
/// gives back what nobody has asked for some seconds.
QPixmap DrawnSkin(const Picture& skin) {
    constexpr int kCacheLimit = 16 * 1024; // KiB: a fine screen's background alone takes 12 MiB
    const QString drawing = QStringLiteral("background");
    if (!skin.IsBuiltIn()) return Look::Shown(skin, drawing, {kLargest, kLargest});
    const QString key = Look::FileOf(drawing);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    picture = Look::Shown(skin, drawing, {kLargest, kLargest});
    QPixmapCache::setCacheLimit(kCacheLimit);
    QPixmapCache::insert(key, picture);
    return picture;
}

} // namespace

MainWindow::MainWindow(GameLobby& client, Board& board) : client(client), board(board) {
    setWindowTitle(QStringLiteral("Ombrin"));
    setProperty(kSpokenAsFrame, true);
    setMinimumSize(Layout::kLeastWidth, Layout::kLeastHeight);
    resize(Layout::kDrawnWidth, Layout::kDrawnHeight);
    RestorePlace();
}

MainWindow::~MainWindow() {
    if (logon != nullptr && isWindow()) RememberPlace(); // it was opened, and is no page of another one
}

void MainWindow::Opens(std::function<void()> then) {
    opened = std::move(then);
    show();
}

void MainWindow::Populate() {
    if (logon != nullptr) return;
    Look::Dress();
    board.ownName = [this] { return client.Marks().m_UserName; };
    waiting = new QLabel(this);
    waiting->setObjectName(QStringLiteral("waiting"));
    logon = new LogonPage(client.Forms().UsrNmPwIP, this);
    logon->setObjectName(QStringLiteral("logon"));
    logon->setAttribute(Qt::WA_OpaquePaintEvent);
    logon->hide();
    cover = new Cover(this);
    cover->setObjectName(QStringLiteral("cover"));
    cover->setAttribute(Qt::WA_OpaquePaintEvent);
    veil = new Veil(this);
    veil->setObjectName(QStringLiteral("veil"));
    veil->hide();
    MakeView();
    room.emplace(client, board);
    MakeLogon();
    waiting->setAlignment(Qt::AlignCenter);
    waiting->setWordWrap(true); // in a narrow window
    waiting->setStyleSheet(QStringLiteral("background: %1; color: white; border-radius: 4px; padding: 4px 12px;")
                               .arg(Look::Colours().Shade("accent").name()));
    waiting->hide();
    waits.setSingleShot(true);
    connect(&waits, &QTimer::timeout, this, [this] {
        if (!Waits()) return;
        SayWhatIsWaitedFor();
        waiting->raise();
        waiting->show();
    });
    board.EachFrame([this] {
        PlaceControls();
        LookAtView();
    });
    cover->raise();
    cover->show();
    board.Frame();
    constexpr int kAfterTheFirstPage = 300; // ms
    QTimer::singleShot(kAfterTheFirstPage, this, [] { Look::ShowProgramIcon(); });
}

void MainWindow::MakeView() {
    View& view = client.MainView();
    const struct {
        Control& control;
        QString spoken;
    } kNames[] = {
        {view.lbLobbies, tr("Lobbies")},
        {view.UserList, tr("Users of the lobby")},
        {view.RoomList, tr("Rooms")},
        {view.RoomUserList, tr("Users of the room")},
        {view.BuddyLV, tr("Buddies")},
        {view.msflxMainChatLines, tr("Chat of the lobby")},
        {view.msflexRoomLines, tr("Chat of the room")},
        {view.MainText, tr("Line for the lobby")},
        {view.RoomText, tr("Line for the room")},
    };
    for (Control* control : view.Controls()) {
        switch (control->Kind()) {
        case ControlKind::Menu:
        case ControlKind::MenuEntry:
        case ControlKind::Timer:
            continue;
        default:
            break;
        }
        if (control == &view.OBSkin || control == &view.HiddenTextBox) continue; // the background; a measure only
        QWidget* widget = board.Paint(*control, this).Widget();
        if (control->Kind() == ControlKind::Label) widget->setProperty("heading", true);
    }
    for (const auto& row : kNames) board.PainterOf(row.control)->Widget()->setAccessibleName(row.spoken);
    board.PainterOf(view.ConfigWarning)->Widget()->lower(); // in a small window it reaches over the lobbies
}

void MainWindow::MakeLogon() {
    UsrNmPwIP& dialog = client.Forms().UsrNmPwIP;
    for (Control* control : dialog.Controls()) {
        if (control == &dialog.BackgroundImage || control == &dialog.LogonImage) continue;
        QWidget* widget = board.Paint(*control, logon).Widget();
        if (control == &dialog.Welcome || control == &dialog.SplashImage)
            static_cast<QLabel*>(widget)->setAlignment(Qt::AlignCenter);
    }
    for (const auto& [label, box] : {std::pair(&dialog.Label1, &dialog.LogonName),
                                     {&dialog.Label2, &dialog.Password},
                                     {&dialog.Label3, &dialog.HostMachine},
                                     {&dialog.Label4, &dialog.HTTPPort}}) {
        auto* shown = static_cast<QLabel*>(board.PainterOf(*label)->Widget());
        shown->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        shown->setBuddy(board.PainterOf(*box)->Widget());
    }
}

void MainWindow::PlaceControls() {
    for (Control* control : client.MainView().Controls()) {
        Painter* painter = board.PainterOf(*control);
        if (painter == nullptr) continue;
        const Place& place = control->Where();
        painter->Widget()->setGeometry(place.left, place.top, place.width, place.height);
    }
    // The dialog's fields count in 16 bits, so that a very wide view is covered around its middle.
    const UsrNmPwIP& dialog = client.Forms().UsrNmPwIP;
    const int left = (width() - dialog.m_iViewWidth / kTwipsPerPixel) / 2;
    logon->setGeometry(rect());
    veil->setGeometry(rect());
    cover->setGeometry(rect());
    for (Control* control : dialog.Controls()) {
        Painter* painter = board.PainterOf(*control);
        if (painter == nullptr) continue;
        const Place& place = control->Where();
        painter->Widget()->setGeometry(left + place.left / kTwipsPerPixel, place.top / kTwipsPerPixel,
                                       place.width / kTwipsPerPixel, place.height / kTwipsPerPixel);
    }
}

/// A form that is open over the view says itself what is waited for. A server that has gone is not waited for.
bool MainWindow::Waits() const {
    const View& view = client.MainView();
    const bool isLost = client.Marks().m_ServerConnected && !client.Connection().IsConnected();
    return !view.Enabled() && client.Stack().TopModal() == nullptr && (!isLost || view.IsDisabledForGood());
}

/// The end of a download that no patcher takes over is the user's to see to.
QString MainWindow::WhatIsWaitedFor() const {
    if (!client.MainView().IsDisabledForGood()) return WaitingFor(client.RoomPosition());
    return Say(client.Forms().DownloadProgress.OK.Visible() ? Own::UpdateLeft : Own::UpdateServer);
}

void MainWindow::SayWhatIsWaitedFor() {
    const QString text = WhatIsWaitedFor();
    if (waiting->text() == text) return;
    waiting->setText(text);
    constexpr int kAround = 32; ///< pixels beside the letters, inside and outside of the label
    const int whole = waiting->fontMetrics().horizontalAdvance(text) + kAround;
    const int across = std::min(whole, width() - kAround);
    waiting->resize(across, waiting->heightForWidth(across));
    waiting->move((width() - waiting->width()) / 2, height() / 2);
}

/// The captions that are the window's own, when another language has come into force.
void MainWindow::SpeakAnew() {
    if (const QString news = Say(Own::News); spoken != news) {
        spoken = news;
        for (Control* control : client.MainView().Controls())
            if (control->Kind() == ControlKind::Button) board.Dirty(*control);
    }
}

void MainWindow::LookAtView() {
    if (!IsCovered() && !(shownSkin == client.MainView().OBSkin.Picture())) update();
    // A client that starts takes its view from the user, and gives it to him when he is in a lobby; with a server
    // close by that happens between two frames.
    if (!client.MainView().Enabled())
        hasStarted = true;
    else if (hasStarted || client.Marks().m_UserListSeen)
        cover->hide();
    SpeakAnew();
    if (client.MainView().IsDisabledForGood() && !veil->isVisible()) {
        veil->show();
        veil->raise();
        veil->setFocus();
    }
    LookWhoHasKeys();
    const bool waitsNow = Waits();
    if (waitsNow && waiting->isVisible()) SayWhatIsWaitedFor();
    if (waitsNow == isWaiting) return;
    isWaiting = waitsNow;
    if (waitsNow) return waits.start(kShownAfter);
    waits.stop();
    waiting->hide();
}

/// Whoever has just come into a lobby wants to talk, unless he is somewhere already. Where the keys were before may be
/// hidden by now, as the logon's boxes are: without a place of their own here, no key would lead anywhere.
void MainWindow::LookWhoHasKeys() {
    const View& view = client.MainView();
    const bool isOpen = !IsCovered() && view.Enabled() && client.Stack().TopModal() == nullptr;
    if (!std::exchange(isOpenToKeys, isOpen) && isOpen && view.Focus() == nullptr)
        board.PainterOf(view.MainText)->Widget()->setFocus(Qt::OtherFocusReason);
}

void MainWindow::ShowLogon(bool on) {
    logon->setVisible(on);
    cover->hide();
    if (on) logon->raise();
    update(); // what is behind it is painted only where it is seen
}

/// Nobody sees the view.
bool MainWindow::IsCovered() const { return logon == nullptr || logon->isVisible() || cover->isVisible(); }

/// Stretched to its place, once for each size.
void MainWindow::PaintSkin() {
    QPainter painter(this);
    if (IsCovered()) return Look::PaintBackground(painter, rect());
    const Image& skin = client.MainView().OBSkin;
    const Place& place = skin.Where();
    const QSize size = QSize(place.width, place.height) * devicePixelRatio();
    if (background.size() != size || !(shownSkin == skin.Picture())) {
        shownSkin = skin.Picture();
        const QPixmap picture = DrawnSkin(shownSkin);
        background = picture.isNull() ? picture : picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        background.setDevicePixelRatio(devicePixelRatio());
    }
    if (background.isNull() || size.isEmpty()) return Look::PaintBackground(painter, rect());
    painter.drawPixmap(place.left, place.top, background);
}

void MainWindow::paintEvent(QPaintEvent*) {
    PaintSkin();
    // Something is on the screen: now there is time for what makes it the client.
    if (opened)
        QMetaObject::invokeMethod(
            this,
            [this, then = std::exchange(opened, nullptr)] {
                Populate();
                then();
            },
            Qt::QueuedConnection);
}

void MainWindow::resizeEvent(QResizeEvent*) {
    client.Resize(width(), height());
    if (logon == nullptr) return;
    PlaceControls();
    board.Schedule();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    Form* top = client.Stack().TopModal();
    if (top != nullptr)
        board.Input([top](UserInput& input) { return input.Close(*top); });
    else
        board.loop.Enter([this] { client.Stack().RequestEnd(); });
}

void MainWindow::RememberPlace() const {
    const QString key = PlaceKey(*screen());
    QSettings settings;
    settings.setValue(QStringLiteral("window/") + key, saveGeometry());
    settings.setValue(QStringLiteral("window/last"), key);
}

/// On the screen of the last time, if it is there, at the place that the window had on it.
void MainWindow::RestorePlace() {
    const QSettings settings;
    const QString last = settings.value(QStringLiteral("window/last")).toString();
    const QScreen* there = QGuiApplication::primaryScreen();
    for (const QScreen* screen : QGuiApplication::screens())
        if (PlaceKey(*screen) == last) there = screen;
    if (there != nullptr) restoreGeometry(settings.value(QStringLiteral("window/") + PlaceKey(*there)).toByteArray());
}

} // namespace ombrin::desktop

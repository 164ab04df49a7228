#include "hosts/desktop/notifications.h"

#include "hosts/desktop/own_texts.h"

#include <QApplication>
#include <algorithm>

namespace ombrin::desktop {

namespace {

/// One line that shows as what it is: no control characters, and none that turn the direction of what follows.
QString OneLine(QString text, int longest) {
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return !c.isPrint(); }, QLatin1Char(' '));
    text = text.simplified();
    return text.size() <= longest ? text : text.left(longest - 1) + QChar(0x2026);
}

} // namespace

DesktopNotifier::DesktopNotifier(const CodePage& page, Announcer& announcer, Milliseconds pause)
    : page(page), announcer(announcer) {
    for (const Notice what : {Notice::PrivateMessage, Notice::BuddyOnLine}) {
        Kind& kind = kinds.at(static_cast<std::size_t>(what));
        kind.pause.setSingleShot(true);
        kind.pause.setInterval(pause);
        QObject::connect(&kind.pause, &QTimer::timeout, &kind.pause, [this, what, &kind] {
            if (const auto newest = std::exchange(kind.newest, std::nullopt)) Announce(what, *newest);
        });
    }
}

void DesktopNotifier::Notify(Notice what, std::string_view who, std::string_view text) {
    const auto line = [this](std::string_view bytes, int longest) {
        return OneLine(QString::fromStdString(page.ToUtf8(bytes)), longest);
    };
    const QString name = line(who, kLongestName), said = line(text, kLongestText).toHtmlEscaped();
    Kind& kind = kinds.at(static_cast<std::size_t>(what));
    kind.newest = what == Notice::PrivateMessage
                      ? Announcement{Say(Own::MessageFrom).arg(name), said}
                      : Announcement{Say(Own::BuddyHere).arg(name), Say(Own::InLobby).arg(said)};
    if (!kind.pause.isActive()) Announce(what, *std::exchange(kind.newest, std::nullopt));
}

/// Looks at this moment: the person may have come back in the pause.
void DesktopNotifier::Announce(Notice what, const Announcement& announcement) {
    if (QApplication::activeWindow() != nullptr) return;
    if (window != nullptr) QApplication::alert(window);
    announcer.Announce(what, announcement.title, announcement.body);
    kinds.at(static_cast<std::size_t>(what)).pause.start();
}

void BringUp(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace ombrin::desktop

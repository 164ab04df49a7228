// Notices for a person who looks elsewhere: a notification of the desktop, and the attention mark of the task bar.
#pragma once

#include "foundation/clock.h"
#include "foundation/code_page.h"
#include "platform/notifier.h"

#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>
#include <optional>

namespace ombrin::desktop {

/// Where notifications appear.
class Announcer {
public:
    virtual ~Announcer() = default;
    /// Returns at once and takes no focus; takes the place of the last one of this kind. `title` is plain text, in
    /// `body` markup is escaped.
    virtual void Announce(Notice kind, const QString& title, const QString& body) = 0;
};

/// Keeps quiet while a window of ours is active. Of a crowd, one of each kind in a pause appears, the newest.
class DesktopNotifier : public Notifier {
public:
    static constexpr Milliseconds kPause{1'000};
    static constexpr int kLongestName = 60, kLongestText = 200; ///< characters; longer ones end in "…"

    DesktopNotifier(const CodePage& page, Announcer& announcer, Milliseconds pause = kPause);

    /// Whose mark calls for attention.
    void Attach(QWidget& marked) { window = &marked; }
    void Notify(Notice what, std::string_view who, std::string_view text) override;

private:
    struct Announcement {
        QString title, body;
    };
    struct Kind {
        QTimer pause;
        std::optional<Announcement> newest; ///< waits for the end of the pause
    };

    void Announce(Notice what, const Announcement& announcement);

    const CodePage& page;
    Announcer& announcer;
    QPointer<QWidget> window;
    std::array<Kind, 2> kinds; ///< by Notice
};

/// Brings the window up, as a click on a notification asks for.
void BringUp(QWidget& window);

} // namespace ombrin::desktop

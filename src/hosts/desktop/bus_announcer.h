// Notifications of the freedesktop desktops, over the session bus.
#pragma once

#include "hosts/desktop/notifications.h"

#include <QObject>
#include <map>

namespace ombrin::desktop {

/// Every call is asynchronous. Without a bus, or a service on it, nothing appears.
class BusAnnouncer : public QObject, public Announcer {
    Q_OBJECT

public:
    /// `clicked` runs when one of our notifications is.
    explicit BusAnnouncer(std::function<void()> clicked) : clicked(std::move(clicked)) {}
    void Announce(Notice kind, const QString& title, const QString& body) override;

private Q_SLOTS:
    void Invoked(uint id, const QString& action);

private:
    /// Connects at the first notification. False where there is no bus.
    bool Reach();

    std::function<void()> clicked;
    bool listens = false;
    std::map<Notice, uint> ids; ///< of the last of each kind
};

} // namespace ombrin::desktop

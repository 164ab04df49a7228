#include "hosts/desktop/bus_announcer.h"

#include "hosts/desktop/own_texts.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QVariantMap>
#include <QtDebug>

namespace ombrin::desktop {

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications"),
              kPath = QStringLiteral("/org/freedesktop/Notifications"), kDefault = QStringLiteral("default");
constexpr int kUsualTime = -1; ///< how long it shows is the desktop's choice

/// Without an address the bus library would start a bus of its own, and wait for it.
bool HasBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace

bool BusAnnouncer::Reach() {
    if (!HasBus()) return false;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    if (!listens)
        listens =
            bus.connect(kService, kPath, kService, QStringLiteral("ActionInvoked"), this, SLOT(Invoked(uint, QString)));
    return true;
}

void BusAnnouncer::Announce(Notice kind, const QString& title, const QString& body) {
    if (!Reach()) return;
    const bool isMessage = kind == Notice::PrivateMessage;
    const QVariantMap hints{
        {QStringLiteral("category"), isMessage ? QStringLiteral("im.received") : QStringLiteral("presence.online")}};
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kService, QStringLiteral("Notify"));
    call << QStringLiteral("Ombrin") << ids[kind] << QString() << title << body
         << QStringList{kDefault, Say(Own::ShowWindow)} << hints << kUsualTime;
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, kind, answer] {
        answer->deleteLater();
        const QDBusPendingReply<uint> reply = *answer;
        if (reply.isValid())
            ids[kind] = reply.value();
        else
            qInfo("no notification: %s", qPrintable(reply.error().message()));
    });
}

void BusAnnouncer::Invoked(uint id, const QString& action) {
    for (const auto& [kind, own] : ids)
        if (own == id && action == kDefault) return clicked();
}

} // namespace ombrin::desktop

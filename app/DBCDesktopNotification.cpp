// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCDesktopNotification.h"

#include "app/DBCSessionBus.h"
#include "operation/DBCSettings.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace {

constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* path = "/org/freedesktop/Notifications";
constexpr int untilTheServerThinksFit = -1;

} // namespace

DBCDesktopNotification::DBCDesktopNotification(std::function<void()> onActivated)
    : _onActivated(std::move(onActivated))
{
}

void DBCDesktopNotification::show(const QString& title, const QString& text)
{
    auto bus = sessionBus();
    if (!bus)
        return;
    // Connecting twice would call twice.
    const QString signal = QStringLiteral("ActionInvoked");
    bus->disconnect(QString::fromLatin1(service), QString::fromLatin1(path),
        QString::fromLatin1(service), signal, this, SLOT(actionInvoked(uint, QString)));
    bus->connect(QString::fromLatin1(service), QString::fromLatin1(path),
        QString::fromLatin1(service), signal, this, SLOT(actionInvoked(uint, QString)));

    QDBusMessage call = sessionCall(service, path, service, "Notify");
    call << QStringLiteral("VelmoraConverter") << _number
         << QString::fromLatin1(DBCSettings::bundleIdentifier) << title << text
         << QStringList({QStringLiteral("default"), QString()})
         << QVariantMap({{QStringLiteral("desktop-entry"),
                QString::fromLatin1(DBCSettings::bundleIdentifier)}})
         << untilTheServerThinksFit;
    auto* const watcher = new QDBusPendingCallWatcher(bus->asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<uint> reply = *watcher;
        _number = reply.isError() ? 0 : reply.value();
        watcher->deleteLater();
    });
}

void DBCDesktopNotification::actionInvoked(uint number, const QString& /*action*/)
{
    if (number == _number)
        _onActivated();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/DBCDesktopNotification.h"

#include "app/desktop/DBCSessionBus.h"
#include "operation/log/DBCSettings.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* path = "/org/freedesktop/Notifications";
constexpr const char* programName = "VelmoraConverter";
constexpr int untilTheServerThinksFit = -1;

QDBusMessage call(const char* method)
{
    QDBusMessage message = sessionCall(service, path, service, method);
    // The bus may start the service, because several desktops start their notification service only
    // for the first notification.
    message.setAutoStartService(true);
    return message;
}

// Connects the slot to the signal of the notification service. Calls after the first change
// nothing, because the bus connection does not connect the same slot twice.
void listen(QDBusConnection& bus, const char* signal, QObject* receiver, const char* slot)
{
    bus.connect(QString::fromLatin1(service), QString::fromLatin1(path),
        QString::fromLatin1(service), QString::fromLatin1(signal), receiver, slot);
}

} // namespace

DBCDesktopNotification::DBCDesktopNotification(
    std::function<void(const QByteArray& activationToken)> onActivated)
    : _onActivated(std::move(onActivated))
{
}

void DBCDesktopNotification::show(const QString& title, const QString& text)
{
    auto bus = sessionBus();
    if (!bus)
        return;
    listen(*bus, "ActivationToken", this, SLOT(activationTokenCame(uint, QString)));
    listen(*bus, "ActionInvoked", this, SLOT(actionInvoked(uint, QString)));
    auto* const watcher
        = new QDBusPendingCallWatcher(bus->asyncCall(call("GetCapabilities")), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, title, text] {
        const QDBusPendingReply<QStringList> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError())
            return;
        const bool takesMarkup = reply.value().contains(u"body-markup"_s);
        send(title, takesMarkup ? text.toHtmlEscaped() : text);
    });
}

void DBCDesktopNotification::send(const QString& title, const QString& text)
{
    const QString program = QString::fromLatin1(DBCSettings::bundleIdentifier);
    QDBusMessage message = call("Notify");
    message << QString::fromLatin1(programName) << _number << program << title << text
            << QStringList({u"default"_s, QString()})
            << QVariantMap({{u"desktop-entry"_s, program}}) << untilTheServerThinksFit;
    auto* const watcher = new QDBusPendingCallWatcher(sessionBus()->asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<uint> reply = *watcher;
        _number = reply.isError() ? 0 : reply.value();
        watcher->deleteLater();
    });
}

void DBCDesktopNotification::activationTokenCame(uint number, const QString& token)
{
    if (number == _number)
        _activationToken = token.toUtf8();
}

void DBCDesktopNotification::actionInvoked(uint number, const QString& /*action*/)
{
    if (number == _number)
        _onActivated(std::exchange(_activationToken, {}));
}

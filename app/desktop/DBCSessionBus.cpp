// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/DBCSessionBus.h"

#include <QFile>

using namespace Qt::StringLiterals;

std::optional<QDBusConnection> sessionBus()
{
    const bool hasBus = qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
        || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus"_s);
    if (!hasBus || !QDBusConnection::sessionBus().isConnected())
        return std::nullopt;
    return QDBusConnection::sessionBus();
}

QDBusMessage sessionCall(
    const char* service, const char* path, const char* interface, const char* method)
{
    QDBusMessage call = QDBusMessage::createMethodCall(QString::fromLatin1(service),
        QString::fromLatin1(path), QString::fromLatin1(interface), QString::fromLatin1(method));
    call.setAutoStartService(false);
    return call;
}

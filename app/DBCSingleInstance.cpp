// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCSingleInstance.h"

#include "operation/DBCSettings.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <QWidget>

namespace {

// A first copy that has just started may not listen yet.
constexpr int millisecondsToAnswer = 3000;
constexpr int millisecondsBetweenTries = 50;

constexpr const char* acknowledgement = "coming\n";

// Two sessions of one user have screens of their own, and a window each.
QString sessionName()
{
    const QByteArray screens = qgetenv("WAYLAND_DISPLAY") + '|' + qgetenv("DISPLAY");
    const QByteArray hash = QCryptographicHash::hash(screens, QCryptographicHash::Sha1);
    return QString::fromLatin1(DBCSettings::bundleIdentifier) + u'-'
        + QString::fromLatin1(hash.toHex().left(8));
}

} // namespace

DBCSingleInstance::DBCSingleInstance(const QString& folder)
    : _socket(folder + u'/' + sessionName())
    , _lock(_socket + QStringLiteral(".lock"))
{
    // The lock of a copy that died is told by its process and not by its age.
    _lock.setStaleLockTime(0);
    connect(&_server, &QLocalServer::newConnection, this, &DBCSingleInstance::answerSecondCopy);
}

QString DBCSingleInstance::meetingFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

DBCSingleInstance::Role DBCSingleInstance::claim()
{
    if (_lock.tryLock(0))
        return listen() ? Role::First : Role::Undetermined;
    const bool isHeldByAnother = _lock.error() == QLockFile::LockFailedError;
    return isHeldByAnother && askFirstCopy() ? Role::Second : Role::Undetermined;
}

bool DBCSingleInstance::listen()
{
    // Left by a copy that died.
    QLocalServer::removeServer(_socket);
    _server.setSocketOptions(QLocalServer::UserAccessOption);
    return _server.listen(_socket);
}

bool DBCSingleInstance::askFirstCopy() const
{
    const QDeadlineTimer deadline(millisecondsToAnswer);
    const auto timeLeft = [&] { return static_cast<int>(deadline.remainingTime()); };
    QLocalSocket socket;
    while (!deadline.hasExpired()) {
        socket.connectToServer(_socket);
        if (socket.waitForConnected(timeLeft()))
            break;
        QThread::msleep(millisecondsBetweenTries);
    }
    socket.write(activationToken() + '\n');
    return socket.waitForBytesWritten(timeLeft()) && socket.waitForReadyRead(timeLeft())
        && socket.readAll() == acknowledgement;
}

void DBCSingleInstance::answerSecondCopy()
{
    while (QLocalSocket* const socket = _server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            if (!socket->canReadLine())
                return;
            const QByteArray token = socket->readLine().trimmed();
            socket->write(acknowledgement);
            socket->flush();
            Q_EMIT raiseRequested(token);
        });
    }
}

QByteArray DBCSingleInstance::activationToken()
{
    const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token;
}

void DBCSingleInstance::bringToFront(QWidget& window, const QByteArray& activationToken)
{
    // Where the toolkit looks for the leave to take the focus.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken);
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

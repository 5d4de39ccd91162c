// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/DBCSingleInstance.h"

#include "operation/log/DBCSettings.h"

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int millisecondsToAnswer = 3000;
constexpr int millisecondsBetweenTries = 50;

constexpr const char* acknowledgement = "coming\n";
constexpr qint64 longestToken = 4096; // bytes; the tokens of real desktops are much shorter

// The name contains a hash of the screens, because two sessions of one user have different screens,
// and each session may have its own copy of the program.
QString sessionName()
{
    const QByteArray screens = qgetenv("WAYLAND_DISPLAY") + '|' + qgetenv("DISPLAY");
    const QByteArray hash = QCryptographicHash::hash(screens, QCryptographicHash::Sha1);
    // The name is short, because the whole path of a socket must fit into 107 bytes.
    return QString::fromLatin1(DBCSettings::bundleIdentifier) + u'-'
        + QString::fromLatin1(hash.toHex().left(8));
}

} // namespace

DBCSingleInstance::DBCSingleInstance(const QString& folder)
    : _hasFolder(!folder.isEmpty())
    , _socket(folder + u'/' + sessionName())
    , _lock(_socket + u".lock"_s)
{
    // With a time of 0, a lock never becomes stale by its age, only when its process no longer
    // exists. The first copy may run for days.
    _lock.setStaleLockTime(0);
    connect(&_server, &QLocalServer::newConnection, this, &DBCSingleInstance::answerSecondCopies);
}

QString DBCSingleInstance::meetingFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

DBCSingleInstance::Role DBCSingleInstance::claim(const QByteArray& activationToken)
{
    if (!_hasFolder)
        return Role::Undetermined;
    const QDeadlineTimer deadline(millisecondsToAnswer);
    while (!_lock.tryLock(0)) {
        const bool isHeldByAnother = _lock.error() == QLockFile::LockFailedError;
        if (!isHeldByAnother || deadline.hasExpired())
            return Role::Undetermined;
        if (askFirstCopy(activationToken, deadline))
            return Role::Second;
        QThread::msleep(millisecondsBetweenTries);
    }
    listen();
    return Role::First;
}

// If listening fails, this copy stays the first one, but a later copy gets no answer and therefore
// has the role Undetermined.
void DBCSingleInstance::listen()
{
    // With this option the server creates the socket under another name and then renames it, which
    // replaces the socket that a crashed copy has left.
    _server.setSocketOptions(QLocalServer::UserAccessOption);
    _server.listen(_socket);
}

bool DBCSingleInstance::askFirstCopy(
    const QByteArray& activationToken, const QDeadlineTimer& deadline) const
{
    const auto timeLeft = [&] { return static_cast<int>(deadline.remainingTime()); };
    QLocalSocket socket;
    socket.connectToServer(_socket);
    if (!socket.waitForConnected(timeLeft()))
        return false;
    socket.write(activationToken + '\n');
    return socket.waitForBytesWritten(timeLeft()) && socket.waitForReadyRead(timeLeft())
        && socket.readAll() == acknowledgement;
}

void DBCSingleInstance::answerSecondCopies()
{
    while (QLocalSocket* const socket = _server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            if (!socket->canReadLine())
                return;
            const QByteArray token = socket->readLine(longestToken).trimmed();
            socket->write(acknowledgement);
            socket->flush();
            Q_EMIT raiseRequested(token);
        });
    }
}

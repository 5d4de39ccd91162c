// SPDX-License-Identifier: GPL-3.0-or-later
// Makes sure that only one copy of the program runs for each user and session. A second copy asks
// the first one to come to the front and ends.
#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLockFile>
#include <QObject>

class DBCSingleInstance : public QObject {
    Q_OBJECT
public:
    enum class Role : quint8 {
        First, // no other copy runs; the object keeps this role until it is destroyed
        Second, // the first copy has been asked to come to the front and has answered
        Undetermined, // another copy does not answer, or it is not known whether one runs
    };

    // folder holds the lock and the socket of the first copy; only its user may enter it. Empty: no
    // such folder was found.
    explicit DBCSingleInstance(const QString& folder = meetingFolder());

    // Waits some seconds for a first copy that is just starting, ending or busy. activationToken is
    // the desktop's permission to take the focus; a second copy hands it to the first one.
    Role claim(const QByteArray& activationToken);

    // The user's runtime folder.
    static QString meetingFolder();

Q_SIGNALS:
    // Emitted in the first copy when a second one has been started.
    void raiseRequested(const QByteArray& activationToken);

private:
    void listen();
    bool askFirstCopy(const QByteArray& activationToken, const QDeadlineTimer& deadline) const;
    void answerSecondCopies();

    bool _hasFolder;
    QString _socket;
    QLockFile _lock;
    QLocalServer _server;
};

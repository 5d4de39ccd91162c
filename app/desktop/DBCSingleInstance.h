// SPDX-License-Identifier: GPL-3.0-or-later
// One running copy for each user and session. A second start asks the first copy to come forward
// and ends.
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
        First, // holds the place until this object's end
        Second, // the first copy has been asked to come forward, and has answered
        Undetermined, // whether another copy runs cannot be told, or it does not answer
    };

    // folder: where the copies meet; only its user may enter it. Empty: none could be found.
    explicit DBCSingleInstance(const QString& folder = meetingFolder());

    // Waits some seconds for a first copy that starts, ends or is busy. activationToken: what the
    // desktop gave to this start, for the first copy.
    Role claim(const QByteArray& activationToken);

    // The user's runtime folder.
    static QString meetingFolder();

Q_SIGNALS:
    // A second copy has been started.
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

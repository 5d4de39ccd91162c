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
        First, // no other copy runs; this one stays the first until the object is destroyed
        Second, // the first copy has confirmed that it comes to the front
        Undetermined, // another copy does not answer, or the lock cannot be used
    };

    // folder is for the lock and the socket of the first copy; nobody but the user may enter this
    // folder. If folder is empty, the role is always Undetermined.
    explicit DBCSingleInstance(const QString& folder = meetingFolder());

    // Finds out the role of this copy. If the first copy is just starting, ending or busy, waits
    // some seconds for it. activationToken is the desktop's permission to take the focus, which a
    // second copy hands to the first one.
    Role claim(const QByteArray& activationToken);

    // Returns the user's runtime folder, or an empty text if there is none.
    static QString meetingFolder();

Q_SIGNALS:
    // Emitted in the first copy when the user has started a second one.
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

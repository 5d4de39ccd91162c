// SPDX-License-Identifier: GPL-3.0-or-later
// One running copy for each user and session. A second start asks the first copy to come forward
// and ends.
#pragma once

#include <QByteArray>
#include <QLocalServer>
#include <QLockFile>
#include <QObject>

class QWidget;

class DBCSingleInstance : public QObject {
    Q_OBJECT
public:
    enum class Role : quint8 {
        First, // holds the place until this object's end
        Second, // the first copy has been asked to come forward, and has answered
        Undetermined, // whether another copy runs cannot be told, or it does not answer
    };

    // folder: where the copies meet; only its user may write there.
    explicit DBCSingleInstance(const QString& folder = meetingFolder());

    Role claim();

    // The user's runtime folder.
    static QString meetingFolder();
    // The leave to take the focus that the desktop gave to this start; empty: none.
    static QByteArray activationToken();
    static void bringToFront(QWidget& window, const QByteArray& activationToken);

Q_SIGNALS:
    void raiseRequested(const QByteArray& activationToken);

private:
    bool listen();
    bool askFirstCopy() const;
    void answerSecondCopy();

    QString _socket;
    QLockFile _lock;
    QLocalServer _server;
};

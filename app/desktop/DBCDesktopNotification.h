// SPDX-License-Identifier: GPL-3.0-or-later
// A note on the desktop for somebody who looks elsewhere; silently none where no desktop shows any.
// The window never waits for the desktop.
#pragma once

#include <QObject>

#include <functional>

class DBCDesktopNotification : public QObject {
    Q_OBJECT
public:
    // onActivated is called when the user clicks a note, with the desktop's leave to take the
    // focus; empty where it gives none.
    explicit DBCDesktopNotification(
        std::function<void(const QByteArray& activationToken)> onActivated);

    // Plain texts. A new note takes the place of the one before.
    void show(const QString& title, const QString& text);

private Q_SLOTS:
    void activationTokenCame(uint number, const QString& token);
    void actionInvoked(uint number, const QString& action);

private:
    void send(const QString& title, const QString& text);

    std::function<void(const QByteArray& activationToken)> _onActivated;
    uint _number = 0; // of the note that is shown; 0: none
    QByteArray _activationToken; // comes before the click that it is for
};

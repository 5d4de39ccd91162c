// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a notification on the desktop for a user who is working in another window. Without a
// desktop that shows notifications nothing happens. The window never waits for the desktop.
#pragma once

#include <QObject>

#include <functional>

class DBCDesktopNotification : public QObject {
    Q_OBJECT
public:
    // onActivated is called when the user clicks the notification. activationToken is the desktop's
    // permission to take the focus; empty if the desktop gives none.
    explicit DBCDesktopNotification(
        std::function<void(const QByteArray& activationToken)> onActivated);

    // Takes plain texts. A new notification replaces the previous one.
    void show(const QString& title, const QString& text);

private Q_SLOTS:
    void activationTokenCame(uint number, const QString& token);
    void actionInvoked(uint number, const QString& action);

private:
    void send(const QString& title, const QString& text);

    std::function<void(const QByteArray& activationToken)> _onActivated;
    uint _number = 0; // of the notification that is shown; 0: none
    QByteArray _activationToken; // the desktop sends it before the click it belongs to
};

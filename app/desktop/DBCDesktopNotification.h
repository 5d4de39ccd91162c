// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a notification on the desktop for a user who is working in another window. Does nothing if
// the desktop cannot show notifications. The window never waits for the desktop.
#pragma once

#include <QObject>

#include <functional>

class DBCDesktopNotification : public QObject {
    Q_OBJECT
public:
    // onActivated is called when the user clicks the notification. activationToken is the desktop's
    // permission to take the focus; the token is empty if the desktop gives none.
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
    uint _number = 0; // of the shown notification; 0 if none is shown
    QByteArray _activationToken; // sent by the desktop just before the click
};

// SPDX-License-Identifier: GPL-3.0-or-later
// A note on the desktop for somebody who looks elsewhere; silently none where no desktop shows any.
#pragma once

#include <QObject>

#include <functional>

class DBCDesktopNotification : public QObject {
    Q_OBJECT
public:
    // onActivated is called when the user clicks a note.
    explicit DBCDesktopNotification(std::function<void()> onActivated);

    // Plain texts without "<" and "&". A new note takes the place of the one before.
    void show(const QString& title, const QString& text);

private Q_SLOTS:
    void actionInvoked(uint number, const QString& action);

private:
    std::function<void()> _onActivated;
    uint _number = 0; // of the note that is shown; 0: none
};

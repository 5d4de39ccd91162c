// SPDX-License-Identifier: GPL-3.0-or-later
// Tells the desktop to keep the computer awake. Has no effect on a desktop without a service for
// this purpose. The window never waits for the desktop's answer.
#pragma once

#include <QObject>

#include <functional>

class DBCSuspendInhibitor : public QObject {
public:
    ~DBCSuspendInhibitor() override { release(); }

    // The desktop may show the reason to the user.
    void hold(const QString& reason);
    void release();

private:
    quint64 _holding = 0; // number of the current hold; 0 while there is none
    quint64 _holds = 0; // number of all holds so far
    QList<std::function<void()>> _releases; // take back the granted requests
};

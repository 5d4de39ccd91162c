// SPDX-License-Identifier: GPL-3.0-or-later
// Asks the desktop to keep the computer awake. Nothing happens on a desktop without such a service.
// The window never waits for the desktop's answer.
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
    quint64 _holding = 0; // number of the current hold; 0: none
    quint64 _holds = 0;
    QList<std::function<void()>> _releases; // one for each service that has granted the request
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <csignal>
#include <functional>
#include <memory>

// Turns SIGINT, SIGTERM and SIGHUP into calls on the thread it was made on, as long as it lives and
// that thread's event loop runs. The signals are blocked meanwhile, for threads and programs that
// are started then as well: a Ctrl-C reaches "du" too, and must not end it.
class DBCSignalWatcher : public QObject {
public:
    explicit DBCSignalWatcher(std::function<void()> onSignal);
    ~DBCSignalWatcher() override;

    // For the start of a program whose other threads begin before it has a watcher: what is sent
    // from now on waits for one.
    static void blockSignals();

private:
    void readSignal();

    std::function<void()> _onSignal;
    sigset_t _formerMask {};
    int _descriptor = -1;
    std::unique_ptr<QSocketNotifier> _notifier;
};

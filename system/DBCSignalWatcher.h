// SPDX-License-Identifier: GPL-3.0-or-later
// Delivers the signals SIGINT, SIGTERM and SIGHUP as calls on a thread's event loop.
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <csignal>
#include <functional>
#include <memory>

// onSignal is called on the thread that created the watcher, while that thread's event loop runs.
// As long as the watcher exists, the three signals are blocked in this thread and in the threads
// and programs that it starts: Ctrl-C in a terminal also reaches "du", and must not end it. Signals
// that the caller of the program set to be ignored stay ignored. Only one watcher may exist at a
// time.
class DBCSignalWatcher : public QObject {
public:
    explicit DBCSignalWatcher(std::function<void()> onSignal);
    ~DBCSignalWatcher() override;

    // Blocks the signals until a watcher is created, which then receives the signals that were sent
    // in the meantime. Called at the start of a program, before its other threads start.
    static void blockSignals();

private:
    void readSignal();

    std::function<void()> _onSignal;
    sigset_t _formerMask {};
    int _descriptor = -1;
    std::unique_ptr<QSocketNotifier> _notifier;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCSignalWatcher.h"

#include <pthread.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

// A signal that was ignored at the start (nohup, a shell's background job) is to stay ignored.
bool isIgnored(int signal)
{
    struct sigaction action { };
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

sigset_t watchedSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (!isIgnored(signal))
            sigaddset(&signals, signal);
    }
    return signals;
}

} // namespace

DBCSignalWatcher::DBCSignalWatcher(std::function<void()> onSignal)
    : _onSignal(std::move(onSignal))
{
    const sigset_t signals = watchedSignals();
    pthread_sigmask(SIG_BLOCK, &signals, &_formerMask);
    _descriptor = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    _notifier = std::make_unique<QSocketNotifier>(_descriptor, QSocketNotifier::Read);
    QObject::connect(_notifier.get(), &QSocketNotifier::activated, this, [this] { readSignal(); });
}

DBCSignalWatcher::~DBCSignalWatcher()
{
    _notifier.reset();
    // Discard signals that came too late to be handled, so that they do not end the program before
    // it has printed its result.
    signalfd_siginfo information {};
    while (read(_descriptor, &information, sizeof information) > 0) { }
    close(_descriptor);
    pthread_sigmask(SIG_SETMASK, &_formerMask, nullptr);
}

void DBCSignalWatcher::blockSignals()
{
    const sigset_t signals = watchedSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

void DBCSignalWatcher::readSignal()
{
    signalfd_siginfo information {};
    if (read(_descriptor, &information, sizeof information) > 0)
        _onSignal();
}

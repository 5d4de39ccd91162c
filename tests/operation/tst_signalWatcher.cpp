// SPDX-License-Identifier: GPL-3.0-or-later
// Tests which signals a watcher receives. The tests send each signal to their own thread only. If
// they sent it to the process, another thread that does not block the signal might end the process.
#include "system/DBCSignalWatcher.h"

#include <QCoreApplication>
#include <QTest>

#include <csignal>

#include <pthread.h>

namespace {

bool isBlocked(int signal)
{
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    return sigismember(&mask, signal) == 1;
}

bool isPending(int signal)
{
    sigset_t pending;
    sigpending(&pending);
    return sigismember(&pending, signal) == 1;
}

void unblockAll()
{
    sigset_t none;
    sigemptyset(&none);
    pthread_sigmask(SIG_SETMASK, &none, nullptr);
}

} // namespace

class tst_signalWatcher : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void signalIsACallOnTheEventLoop_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGHUP") << SIGHUP;
    }
    void signalIsACallOnTheEventLoop()
    {
        QFETCH(int, signal);
        int calls = 0;
        const DBCSignalWatcher watcher([&calls] { ++calls; });
        raise(signal);
        QCOMPARE(calls, 0);
        QTRY_COMPARE(calls, 1);
    }

    void ignoredSignalStaysIgnored()
    {
        const auto before = std::signal(SIGHUP, SIG_IGN);
        int calls = 0;
        {
            const DBCSignalWatcher watcher([&calls] { ++calls; });
            QVERIFY(!isBlocked(SIGHUP));
            raise(SIGHUP);
            raise(SIGTERM);
            QTRY_COMPARE(calls, 1);
            QCoreApplication::processEvents();
        }
        std::signal(SIGHUP, before);
        QCOMPARE(calls, 1);
    }

    void signalsAreBlockedOnlyMeanwhile()
    {
        {
            const DBCSignalWatcher watcher([] {});
            QVERIFY(isBlocked(SIGINT));
        }
        QVERIFY(!isBlocked(SIGINT));
    }

    // A watcher unblocks its signals when it is destroyed. A signal that is still pending then
    // would end this program, so the watcher must discard that signal before.
    void signalThatComesTooLateIsForgotten()
    {
        int calls = 0;
        {
            const DBCSignalWatcher watcher([&calls] { ++calls; });
            raise(SIGTERM);
            QVERIFY(isPending(SIGTERM));
        }
        QVERIFY(!isPending(SIGTERM));
        QCOMPARE(calls, 0);
    }

    void signalFromBeforeTheWatcherWaitsForIt()
    {
        DBCSignalWatcher::blockSignals();
        raise(SIGINT);
        int calls = 0;
        {
            const DBCSignalWatcher watcher([&calls] { ++calls; });
            QTRY_COMPARE(calls, 1);
        }
        QVERIFY(!isPending(SIGINT));
        unblockAll();
    }
};

QTEST_GUILESS_MAIN(tst_signalWatcher)
#include "tst_signalWatcher.moc"

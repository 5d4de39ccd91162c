// SPDX-License-Identifier: GPL-3.0-or-later
// Registers what has to be removed or ended when a signal ends this program: files outside the
// user's folders, and programs that this program has started. Destroying the object only ends the
// registration.
#pragma once

#include <QByteArray>
#include <QList>

#include <sys/types.h>

class DBCSignalCleanup {
public:
    // A signal removes those of the files that exist, and then the folder, which must hold nothing
    // else.
    DBCSignalCleanup(const QList<QByteArray>& files, const QByteArray& folder);
    // A signal kills the group of this process, which must be a child that has not been waited for.
    explicit DBCSignalCleanup(pid_t process);
    ~DBCSignalCleanup();
    DBCSignalCleanup(const DBCSignalCleanup&) = delete;
    DBCSignalCleanup& operator=(const DBCSignalCleanup&) = delete;

    // After this call, SIGINT, SIGTERM and SIGHUP clean up before they end the program. A signal
    // that was ignored when the program started stays ignored. To be called before other threads
    // start.
    static void install();

private:
    struct Entry {
        QList<QByteArray> files;
        QByteArray folder;
        pid_t process;
    };
    static void cleanUpAndEnd(int signal);
    void note();

    const Entry _entry;
    int _slot = -1; // -1 if no slot was free
};

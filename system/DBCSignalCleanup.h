// SPDX-License-Identifier: GPL-3.0-or-later
// Names what has to go away when a signal ends the program: files outside the user's folders, and
// programs that it has started. Nothing happens to it when the object is destroyed.
#pragma once

#include <QByteArray>
#include <QList>

#include <sys/types.h>

class DBCSignalCleanup {
public:
    // These files, as far as they exist, and then the folder that holds nothing else.
    DBCSignalCleanup(const QList<QByteArray>& files, const QByteArray& folder);
    // The group of this process, a child of the program that has not been waited for.
    explicit DBCSignalCleanup(pid_t process);
    ~DBCSignalCleanup();
    DBCSignalCleanup(const DBCSignalCleanup&) = delete;
    DBCSignalCleanup& operator=(const DBCSignalCleanup&) = delete;

    // From now on SIGINT, SIGTERM and SIGHUP clean up before they end the program, as far as it is
    // not meant to ignore them. For a start without threads.
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
    int _slot = -1; // none was free
};

// SPDX-License-Identifier: GPL-3.0-or-later
// Lets one test answer for the machine: replace members of DBCHost::current() through it, and its
// end puts the machine back. `ScopedHost host; host->systemVersion = [] { ... };`
#pragma once

#include "system/DBCHost.h"

class ScopedHost {
public:
    ScopedHost()
        : _saved(DBCHost::current())
    {
    }
    ~ScopedHost() { DBCHost::current() = _saved; }
    ScopedHost(const ScopedHost&) = delete;
    ScopedHost& operator=(const ScopedHost&) = delete;

    DBCHost* operator->() { return &DBCHost::current(); }

    // The paths named so count as having no such right, whoever runs the tests; root passes every
    // real access check.
    void makeUnreadable(const QStringList& paths)
    {
        DBCHost::current().isReadable
            = [paths](const QString& path) { return !paths.contains(path); };
    }
    void makeReadOnly(const QStringList& paths)
    {
        DBCHost::current().isWritable
            = [paths](const QString& path) { return !paths.contains(path); };
    }
    void setFreeBytes(std::optional<quint64> bytes)
    {
        DBCHost::current().freeBytes = [bytes](const QString&) { return bytes; };
    }

private:
    DBCHost _saved;
};

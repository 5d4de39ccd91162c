// SPDX-License-Identifier: GPL-3.0-or-later
// Lets a test replace what the program learns about the machine. The test sets members of
// DBCHost::current() through this object, which restores them all when it is destroyed:
// `ScopedHost host; host->systemVersion = [] { ... };`
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

    // Makes the program believe that it may not read, or not write, these paths. Tests that run as
    // root need this, because root passes every real access check.
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

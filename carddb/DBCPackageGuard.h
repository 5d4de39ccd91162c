// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps two runs of this program from using one package at the same time. It locks the folder
// itself, because the package's lock file is replaced at every start.
#pragma once

#include "system/DBCDescriptor.h"

#include <QString>

#include <memory>

// A guard is a lock on one package: an flock() on the package folder. It leaves nothing on the disk
// and ends with the process. The main application does not know it and uses the lock file instead.
class DBCPackageGuard {
public:
    enum class Use : quint8 {
        Reading, // others may read at the same time
        Changing, // nobody else may use the package
    };

    // Returns a guard that holds the lock until it is destroyed, or null when somebody else holds a
    // lock that excludes this use. Never waits for the lock. Where the file system has no locks, or
    // the folder does not exist, it returns a guard that keeps nobody out.
    static std::unique_ptr<DBCPackageGuard> hold(const QString& package, Use use);

private:
    explicit DBCPackageGuard(int descriptor)
        : _folder(descriptor)
    {
    }

    DBCDescriptor _folder;
};

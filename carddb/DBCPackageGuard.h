// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps conversions of one package out of each other's way. The package's lock file cannot: each
// start makes that one afresh. This holds a lock on the folder itself, which leaves no trace.
#pragma once

#include "system/DBCDescriptor.h"

#include <QString>

#include <memory>

class DBCPackageGuard {
public:
    enum class Use : quint8 {
        Reading, // beside others that read
        Changing, // alone
    };

    // Null when somebody else uses the package in a way that excludes this one. Held as long as the
    // object lives. Where the file system knows no locks, or there is no such folder, nobody is
    // kept out.
    static std::unique_ptr<DBCPackageGuard> hold(const QString& package, Use use);

private:
    explicit DBCPackageGuard(int descriptor)
        : _folder(descriptor)
    {
    }

    DBCDescriptor _folder;
};

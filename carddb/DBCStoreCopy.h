// SPDX-License-Identifier: GPL-3.0-or-later
// A private copy of a package's store. Reading the copy instead of the store disturbs no other
// program and leaves no files beside the store.
#pragma once

#include "system/DBCSignalCleanup.h"

#include <QString>
#include <QTemporaryDir>

// Owns a folder in the system's temporary folder. The folder is removed when the object is
// destroyed, and also when a signal ends the program, because the copy holds private data. Use an
// object on one thread.
class DBCStoreCopy {
public:
    // Copies the store with the log and journal that SQLite may have left beside it. If the store
    // does not exist, this copies nothing and reports no error.
    explicit DBCStoreCopy(const QString& package);

    bool isCopied() const { return _reason.isEmpty(); }
    // The system's message on why the store could not be copied; empty if it was copied.
    const QString& reason() const { return _reason; }
    // The path of the copied store. SQLite may write to it.
    QString storeFile() const;

private:
    QTemporaryDir _folder;
    DBCSignalCleanup _cleanup;
    QString _reason;
};

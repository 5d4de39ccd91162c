// SPDX-License-Identifier: GPL-3.0-or-later
// A private copy of a package's store, so that a program that reads it disturbs nobody and leaves
// nothing beside it.
#pragma once

#include "system/DBCSignalCleanup.h"

#include <QString>
#include <QTemporaryDir>

// Owns a folder in the system's temporary folder. It is removed when the object is destroyed, and
// when a signal ends the program, because the copy holds private data. One thread.
class DBCStoreCopy {
public:
    // Copies the store with the log and journal that SQLite may have left beside it. A store that
    // does not exist is no error; then nothing is copied.
    explicit DBCStoreCopy(const QString& package);

    bool isCopied() const { return _reason.isEmpty(); }
    // Why the store could not be copied, in words of the system; empty if it was.
    const QString& reason() const { return _reason; }
    // The copied store; SQLite may write to it.
    QString storeFile() const;

private:
    QTemporaryDir _folder;
    DBCSignalCleanup _cleanup;
    QString _reason;
};

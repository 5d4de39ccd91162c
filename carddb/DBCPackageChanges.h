// SPDX-License-Identifier: GPL-3.0-or-later
// Compares a package with its backup to find what other programs changed since the backup was made.
#pragma once

#include <QString>

// The differences, except for the cards, card images and attachments of the import itself.
struct DBCPackageChanges {
    qint64 addedCards = 0; // in the package, not in the backup
    qint64 removedCards = 0; // in the backup, not in the package
    qint64 changedCards = 0; // in both, with different values
    qint64 otherFiles = 0; // card images, attachments and other files: new, missing or different
    bool isOtherDataChanged = false; // the store differs in more than its cards
    bool isUnknown = false; // one of the two could not be read, so anything may have changed

    bool any() const
    {
        return addedCards != 0 || removedCards != 0 || changedCards != 0 || otherFiles != 0
            || isOtherDataChanged || isUnknown;
    }
};

// cardIDStart: how the IDs of the import's own cards begin; empty if there are none. A package that
// does not exist has no changes: there is nothing that could be lost. Nor has one without a backup:
// it cannot be replaced.
//
// The stores are compared as copies in a temporary folder, by the values of their rows, because a
// checkpoint or a rolled back transaction changes their bytes only. Files are compared by size and
// modification time, which a backup keeps. Nothing is written beside either package.
DBCPackageChanges changesSinceBackup(
    const QString& package, const QString& backup, const QString& cardIDStart);

// Whether another process holds a lock on the package's store: it is reading or has a transaction
// open, or the store has a write-ahead log and the process is connected. This process must have no
// connection to that store, because the look would drop its locks.
bool isStoreInUse(const QString& package);

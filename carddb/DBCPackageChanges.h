// SPDX-License-Identifier: GPL-3.0-or-later
// Compares a package with its backup to find what other programs changed since the backup was made.
#pragma once

#include <QString>

// The differences, without the cards, card images and attachments that the import itself added.
struct DBCPackageChanges {
    qint64 addedCards = 0; // cards in the package that the backup lacks
    qint64 removedCards = 0; // cards in the backup that the package lacks
    qint64 changedCards = 0; // cards in both, with different values
    qint64 otherFiles = 0; // card images, attachments and other files: new, missing or different
    bool isOtherDataChanged = false; // the store differs in more than its cards
    // The package or its backup could not be read, so anything may have changed.
    bool isUnknown = false;

    bool any() const
    {
        return addedCards != 0 || removedCards != 0 || changedCards != 0 || otherFiles != 0
            || isOtherDataChanged || isUnknown;
    }
};

// cardIDStart is the text with which the IDs of the import's own cards begin; it is empty if there
// are no such cards. Reports no changes for a package that does not exist, because it has nothing
// that could be lost, and for one without a backup, because it cannot be replaced.
//
// The function compares copies of both stores in a temporary folder. It compares the values of
// their rows, because a checkpoint or a rolled back transaction changes the bytes of a store but no
// value. It compares other files by size and modification time, which a backup keeps. It writes
// nothing beside the package or the backup.
DBCPackageChanges changesSinceBackup(
    const QString& package, const QString& backup, const QString& cardIDStart);

// Whether another process holds a lock on the package's store: the process is reading, has a
// transaction open, or is connected to a store with a write-ahead log. This process must have no
// connection to that store, because the function opens and closes the store's file, and closing it
// drops all POSIX locks that this process holds on the file.
bool isStoreInUse(const QString& package);

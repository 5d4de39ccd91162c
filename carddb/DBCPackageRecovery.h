// SPDX-License-Identifier: GPL-3.0-or-later
// Finds out whether the last import or restore of a package was cut off, and settles it: either the
// backup is restored, or the package is kept as it is.
#pragma once

#include "carddb/DBCPackageChanges.h"
#include "operation/base/DBCResultCode.h"

#include <QString>

#include <memory>

class DBCPackageJournal;

// The constructor reads the journal beside the package (see DBCPackageJournal) and settles at once
// what needs no decision: a journal of the stages None, Backup and Restored, and one of the stage
// Import whose cards are in the store, mean that the package is complete. Then the hidden remains
// of copies and the journal are removed. The stage Import without such cards, and the stage
// Restore, need a decision.
//
// One thread. If the program is killed during restore() or keep(), the journal remains, and the
// next object finds the import unfinished again.
class DBCPackageRecovery {
public:
    enum class State : quint8 {
        Nothing, // there is nothing to settle, or it has been settled
        InUse, // an import is running, or another run of this program uses the package
        Unreadable, // a journal exists, but it cannot be read or removed
        Unfinished, // the user has to decide between restore() and keep()
    };

    // Holds the journal until destroyed, so that nobody else settles the same package meanwhile.
    // The package need not exist any more.
    explicit DBCPackageRecovery(const QString& package);
    ~DBCPackageRecovery();

    State state() const { return _state; }
    QString package() const { return _package; } // a link to the package is resolved
    QString journalPath() const; // whether or not a journal exists there
    QString backupPath() const; // empty when no journal was found or it names no backup

    // What other programs have changed in the package since the import was cut off. Reads both
    // stores; only for an unfinished import.
    DBCPackageChanges changes() const;

    // Replaces the package with its backup, which stays. If other programs have changed the
    // package, it is not removed but gets the next free backup name first, see keptPackagePath().
    // Success or RestoreFailure; after a failure the backup is whole, and the import stays
    // unfinished. The package may then be missing, but a changed one is back under its own name.
    DBCResultCode restore();
    // Removes the journal and leaves package and backup as they are. If other programs have changed
    // the package, a copy of it is made under the next free backup name first. False when there is
    // no package any more, or when the copy could not be made or the journal not be removed.
    bool keep();
    // Where restore() or keep() has put what other programs had changed; empty: nowhere.
    QString keptPackagePath() const { return _keptPackagePath; }

private:
    State settleWhatNeedsNoDecision();
    bool wasSaved() const;
    bool cleanUp();

    QString _package;
    std::unique_ptr<DBCPackageJournal> _journal; // null when no journal was found
    State _state = State::Nothing;
    QString _keptPackagePath;
};

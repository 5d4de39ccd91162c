// SPDX-License-Identifier: GPL-3.0-or-later
// Finds out whether the last import or restore of a package was cut off, and settles it: either the
// backup is restored, or the package is kept as it is.
#pragma once

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

    // Replaces the package with its backup, which stays. Success or RestoreFailure; after a failure
    // the package may be missing, the backup is whole, and the import stays unfinished.
    DBCResultCode restore();
    // Leaves package and backup as they are and removes the journal. False when there is no package
    // any more, or when the journal could not be removed.
    bool keep();

private:
    State settleWhatNeedsNoDecision();
    bool wasSaved() const;
    bool cleanUp();

    QString _package;
    std::unique_ptr<DBCPackageJournal> _journal; // null when no journal was found
    State _state = State::Nothing;
};

// SPDX-License-Identifier: GPL-3.0-or-later
// Finds out whether the last import or restore of a package was cut off, and then puts the package
// in order: it either restores the backup or keeps the package as it is.
#pragma once

#include "carddb/DBCPackageChanges.h"
#include "operation/base/DBCResultCode.h"

#include <QString>

#include <memory>

class DBCPackageJournal;

// The constructor reads the journal, the small file beside the package that records how far the
// import or restore has come (see DBCPackageJournal). The package is complete if the stage is None,
// Backup or Restored, or if the stage is Import and the store holds the import's cards. Then the
// constructor removes the journal and the hidden remains of copies. If the stage is Restore, or
// Import without such cards, the user has to decide.
//
// Use an object on one thread. If the program is killed during restore() or keep(), the journal
// remains, and the next object finds the import unfinished again.
class DBCPackageRecovery {
public:
    enum class State : quint8 {
        Nothing, // the package needs no decision, or restore() or keep() has succeeded
        InUse, // an import is running, or another run of this program uses the package
        Unreadable, // a journal exists, but it cannot be read or removed
        Unfinished, // the user has to decide between restore() and keep()
    };

    // The object keeps the journal locked until it is destroyed, so that nobody else can settle the
    // same package meanwhile. The package need not exist any more.
    explicit DBCPackageRecovery(const QString& package);
    ~DBCPackageRecovery();

    State state() const { return _state; }
    // The target of the link, if the given path was a link.
    QString package() const { return _package; }
    // The path that a journal of this package has, even if there is none.
    QString journalPath() const;
    QString backupPath() const; // empty when no journal was found, or when it names no backup

    // Finds what other programs have changed in the package since its backup was made. Reads both
    // stores. To be called only in the state Unfinished.
    DBCPackageChanges changes() const;

    // Replaces the package with its backup; the backup itself stays. If other programs have changed
    // the package, this does not remove it but renames it to the next free backup name, see
    // keptPackagePath(). Returns Success or RestoreFailure. After a failure the backup is complete,
    // and the state stays Unfinished. An unchanged package may then be missing; a changed one has
    // its own name again, or it is at keptPackagePath() if it could not be renamed back.
    DBCResultCode restore();
    // Removes the journal and leaves package and backup as they are. If other programs have changed
    // the package, this first copies it to the next free backup name. Returns false when the
    // package does not exist any more, when it could not be copied, or when the journal could not
    // be removed.
    bool keep();
    // Where restore() or keep() has put a package that other programs had changed; empty if neither
    // has done so.
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

// SPDX-License-Identifier: GPL-3.0-or-later
// What an import that did not finish left behind, and the two ways to settle it.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

#include <memory>

class DBCPackageJournal;

class DBCPackageRecovery {
public:
    enum class State : quint8 {
        Nothing, // no import was cut off, or what it left needed no decision and is cleaned up
        InUse, // an import is at work, or something else uses the package
        Unreadable, // there is a journal that cannot be read
        Unfinished, // somebody has to decide: restore() or keep()
    };

    // Nobody else settles the same package while the object lives.
    explicit DBCPackageRecovery(const QString& package);
    ~DBCPackageRecovery();

    State state() const { return _state; }
    QString package() const { return _package; } // the folder itself where a link was given
    QString journalPath() const;
    QString backupPath() const; // of an unfinished import

    // Success or RestoreFailure; after a failure the import stays unfinished.
    DBCResultCode restore();
    // The package stays as it is, and the backup where it is. False when there is no package left,
    // or the journal could not be removed.
    bool keep();

private:
    State settleWhatNeedsNoDecision();
    bool wasSaved() const;
    bool cleanUp();

    QString _package;
    std::unique_ptr<DBCPackageJournal> _journal; // null: none of a dead import
    State _state;
};

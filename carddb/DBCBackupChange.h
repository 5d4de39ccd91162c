// SPDX-License-Identifier: GPL-3.0-or-later
// Restores or deletes one backup of a package without asking the user. All checks run before the
// first change on the disk.
#pragma once

#include "operation/base/DBCEvent.h"
#include "operation/base/DBCProblem.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

class DBCPackageGuard;

// One object makes one change, either a restore or a deletion, on one thread. It locks the package
// and the backup with DBCPackageGuard while it checks them, and keeps both locked until it is
// destroyed. If the program is killed while restore() replaces the package, the journal (the small
// file beside the package, see DBCPackageJournal) names the chosen backup, and the next start asks
// the user whether to restore it. If the program is killed during remove(), the backup is either
// still complete, or it no longer has its name and the rest of it lies beside the package under a
// hidden name.
class DBCBackupChange {
public:
    enum class Outcome : quint8 {
        Done,
        // Never returned here. Callers use it when their user said no; nothing was touched.
        NotConfirmed,
        Refused, // a check failed; nothing was touched
        // After restore(), the package is as it was, or the next start asks the user about it.
        // After remove(), the backup is still there, possibly with parts missing.
        Failed,
    };

    struct Result {
        Outcome outcome;
        DBCProblem problem = {}; // empty when the outcome is Done
        // The path of the backup that restore() made of the old package before it replaced it. It
        // is empty when there was no package, or when restore() ended before that backup was
        // complete.
        QString keptPackage = {};
    };

    // Receives the events DatabaseBackup... and DatabaseRestore... on the calling thread; their
    // sender is not set. The function may be empty.
    using Events = std::function<void(const DBCEvent& event)>;

    // name is the backup's folder name, as DBCPackageBackups::list() gives it. The package itself
    // need not exist.
    DBCBackupChange(const QString& package, const QString& name);
    ~DBCBackupChange();

    // Copies the package to the next free backup name, removes the package, and then copies the
    // chosen backup into its place. The chosen backup itself stays where it is.
    Result restore(const Events& events);

    // Deletes the backup. Refuses when neither the package nor another backup is sound, so that the
    // last sound copy of the cards is never deleted.
    Result remove();

private:
    using Problem = std::optional<DBCProblem>;

    Problem reasonNotToTouch();
    Problem reasonNotToRestore() const;
    Problem reasonNotToReplacePackage() const;
    Problem reasonNotToRemove() const;
    bool isAnythingElseSound() const;
    Problem checkSpace() const;

    Problem keepPackage();
    Problem copyPackageTo(const QString& target) const;
    Problem putInPlace() const;
    bool bringBackWhatStoodThere() const;

    void send(DBCEventName name, std::optional<bool> isOk = {}) const;

    QString _package; // empty when the package's path is a link that leads nowhere
    QString _name;
    QString _backup; // empty when there is no such backup
    QString _keptPackage;
    Events _events;
    std::unique_ptr<DBCPackageGuard> _packageGuard;
    std::unique_ptr<DBCPackageGuard> _backupGuard;
};

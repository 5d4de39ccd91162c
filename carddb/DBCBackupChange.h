// SPDX-License-Identifier: GPL-3.0-or-later
// Restores or deletes one backup of a package without asking anybody. Every check runs before the
// first change on the disk.
#pragma once

#include "operation/base/DBCEvent.h"
#include "operation/base/DBCProblem.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

class DBCPackageGuard;

// One object serves one change on one thread, and holds the guards of package and backup from its
// checks until it is destroyed. If the program is killed during a restore, the journal beside the
// package names the chosen backup, and the next start asks whether to restore it. If it is killed
// while it deletes, the backup is whole, or it is gone from its name and its remains have a hidden
// name beside it.
class DBCBackupChange {
public:
    enum class Outcome : quint8 {
        Done,
        NotConfirmed, // never set here: for callers whose user said no; nothing was touched
        Refused, // a check failed; nothing was touched
        // A restore left the package as it was, or the next start asks about it. A deletion left
        // the backup, possibly with parts missing.
        Failed,
    };

    struct Result {
        Outcome outcome;
        DBCProblem problem = {}; // empty when done
        // Path of the backup that was made of the package before it was replaced; empty when
        // there was no package, or the change ended before that.
        QString keptPackage = {};
    };

    // Receives the events DatabaseBackup... and DatabaseRestore..., without sender, on the calling
    // thread. May be empty.
    using Events = std::function<void(const DBCEvent& event)>;

    // name is the backup's folder name, as DBCPackageBackups::list() gives it. The package need not
    // exist.
    DBCBackupChange(const QString& package, const QString& name);
    ~DBCBackupChange();

    // Copies the package to the next backup name, removes it, and copies the chosen backup into
    // its place. The chosen backup also stays where it is.
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

    QString _package; // empty: the path is a link that leads nowhere
    QString _name;
    QString _backup; // empty: there is no such backup
    QString _keptPackage;
    Events _events;
    std::unique_ptr<DBCPackageGuard> _packageGuard;
    std::unique_ptr<DBCPackageGuard> _backupGuard;
};

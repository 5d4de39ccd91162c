// SPDX-License-Identifier: GPL-3.0-or-later
// Restores and deletes chosen backups of a package. Nobody is asked here. Whatever speaks against a
// change is found before anything is touched.
#pragma once

#include "operation/base/DBCEvent.h"
#include "operation/base/DBCProblem.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

class DBCPackageGuard;

class DBCBackupChange {
public:
    enum class Outcome : quint8 {
        Done,
        NotConfirmed, // by whoever was asked; nothing was touched
        Refused, // nothing was touched
        Failed, // of a restore: the package is as it was, or the next start asks about it
    };

    struct Result {
        Outcome outcome;
        DBCProblem problem = {}; // empty when done
        QString keptPackage = {}; // backup of what stood in the package's place; empty: none
    };

    // The events DatabaseBackup... and DatabaseRestore..., without sender. May be empty.
    using Events = std::function<void(const DBCEvent& event)>;

    // name: of the backup, as DBCPackageBackups lists it.
    DBCBackupChange(const QString& package, const QString& name);
    ~DBCBackupChange();

    // Backs up what stands in the package's place, then puts the chosen backup there, which stays
    // where it is, too.
    Result restore(const Events& events);

    // Never removes the last thing that holds cards: something sound has to remain.
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

    QString _package; // empty: there is no such place
    QString _name;
    QString _backup; // empty: there is no such backup
    QString _keptPackage;
    Events _events;
    std::unique_ptr<DBCPackageGuard> _packageGuard;
    std::unique_ptr<DBCPackageGuard> _backupGuard;
};

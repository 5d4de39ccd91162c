// SPDX-License-Identifier: GPL-3.0-or-later
// Asks the user whether to restore or keep a package whose last import did not finish, and then
// does what the user chose.
#pragma once

#include <QString>

enum class DBCSettlement : quint8 {
    NothingToSettle, // the last import finished, or what it left has been cleaned up
    Restored, // the package has been replaced with its backup
    Kept, // the package stays as it is
    NotAnswered, // the user gave no answer; nothing was changed
    InUse, // another run of this program uses the package
    Failed, // a message has been shown; the import is still unfinished
};

// How an unfinished import is settled: by asking the user, or as decided before.
enum class DBCSettlementChoice : quint8 { Ask, Restore, Keep };

// The package at the given path need not exist any more. With Ask, the function restores the
// package only if the user answers yes. If other programs have changed the package since the
// import, the question says so, and before a restore the function keeps the changed package under
// the next backup name. It stores the path of the kept package in keptPackage, which may be null;
// if no package was kept, it does not touch keptPackage. The function logs answers and failures.
// The caller has to report InUse.
DBCSettlement settleUnfinishedImport(const QString& package,
    DBCSettlementChoice choice = DBCSettlementChoice::Ask, QString* keptPackage = nullptr);

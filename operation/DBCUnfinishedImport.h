// SPDX-License-Identifier: GPL-3.0-or-later
// Asks the user whether to restore or keep a package whose last import did not finish, and does it.
#pragma once

#include <QString>

enum class DBCSettlement : quint8 {
    NothingToSettle, // the last import finished, or what it left has been cleaned up
    Restored, // the package has been replaced with its backup
    Kept, // the package stays as it is
    NotAnswered, // no answer could be had; nothing was changed
    InUse, // another run of this program uses the package
    Failed, // a message has been shown; the import is still unfinished
};

// How an unfinished import is settled: by asking the user, or as decided before.
enum class DBCSettlementChoice : quint8 { Ask, Restore, Keep };

// The package at the given path need not exist any more. With Ask, nothing is restored unless the
// user answers yes; if other programs have changed the package since, the question says so. What
// they changed is kept under the next backup name first, whose path goes to keptPackage (may be
// null; untouched if there is none). Answers and failures are logged here; InUse is reported by the
// caller.
DBCSettlement settleUnfinishedImport(const QString& package,
    DBCSettlementChoice choice = DBCSettlementChoice::Ask, QString* keptPackage = nullptr);

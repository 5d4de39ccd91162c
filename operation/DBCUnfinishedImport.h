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

// The package at the given path need not exist any more. Nothing is restored unless the user
// answers yes. Answers and failures are logged here; InUse is reported by the caller.
DBCSettlement settleUnfinishedImport(const QString& package);

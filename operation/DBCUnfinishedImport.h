// SPDX-License-Identifier: GPL-3.0-or-later
// Asks what is to become of a package whose last import did not finish, and sees to it.
#pragma once

#include <QString>

enum class DBCSettlement : quint8 {
    NothingToSettle,
    Restored, // the backup is back in place
    Kept, // the package stays as it is
    NotAnswered, // nobody could be asked; nothing was changed
    InUse, // somebody is at work with the package
    Failed, // a message has been shown, and the import stays unfinished
};

// package: the path of a package folder, which need not exist any more. Nothing is restored without
// an answer of yes. Answers and failures are logged; InUse is the caller's to report.
DBCSettlement settleUnfinishedImport(const QString& package);

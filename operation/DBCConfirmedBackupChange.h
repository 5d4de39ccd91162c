// SPDX-License-Identifier: GPL-3.0-or-later
// Restores or deletes a backup after the user has confirmed it. Both functions log what they do. If
// the result is not Done, the caller has to show the problem in the result.
#pragma once

#include "carddb/DBCBackupChange.h"

// name is the backup's folder name. If the last import into the package did not finish, this
// function first calls settleUnfinishedImport(), which may ask the user a question of its own. A
// missing or damaged backup is refused without asking the user. events may be empty.
DBCBackupChange::Result restoreBackupIfConfirmed(
    const QString& package, const QString& name, const DBCBackupChange::Events& events);

DBCBackupChange::Result deleteBackupIfConfirmed(const QString& package, const QString& name);

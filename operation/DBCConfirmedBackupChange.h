// SPDX-License-Identifier: GPL-3.0-or-later
// Restores or deletes a backup after the user has confirmed it. Both are logged; the caller shows
// the problem of a result other than Done.
#pragma once

#include "carddb/DBCBackupChange.h"

// name is the backup's folder name. An import that did not finish is settled first, which may ask a
// question of its own. A backup that is missing or damaged is refused without a question. events
// may be empty.
DBCBackupChange::Result restoreBackupIfConfirmed(
    const QString& package, const QString& name, const DBCBackupChange::Events& events);

DBCBackupChange::Result deleteBackupIfConfirmed(const QString& package, const QString& name);

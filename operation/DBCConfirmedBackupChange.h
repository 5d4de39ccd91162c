// SPDX-License-Identifier: GPL-3.0-or-later
// Asks before a chosen backup takes its package's place or is deleted, and sees to it. What is done
// is logged; showing what went wrong is the caller's.
#pragma once

#include "carddb/DBCBackupChange.h"

// An import that did not finish is settled first, which may ask, too.
DBCBackupChange::Result restoreBackupIfConfirmed(
    const QString& package, const QString& name, const DBCBackupChange::Events& events);

DBCBackupChange::Result deleteBackupIfConfirmed(const QString& package, const QString& name);

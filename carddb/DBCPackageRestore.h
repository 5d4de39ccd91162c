// SPDX-License-Identifier: GPL-3.0-or-later
// Puts a backup back in place of its package.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

namespace DBCPackageRestore {

// Removes the package and then copies the backup into its place, in this order so that it works on
// a full disk. The backup stays. A failed attempt is repeated once. Success or RestoreFailure;
// after a failure, or if the program is killed, the package may be missing, but the backup is whole
// and a partial copy has only a hidden name. The caller records the restore in the journal.
DBCResultCode restore(const QString& package, const QString& backup);

} // namespace DBCPackageRestore

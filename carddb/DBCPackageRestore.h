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

// The same for a package that other programs have changed: nothing of it is removed. It gets the
// next free backup name, which goes to keptPackage, and the backup is copied into its place. An
// open transaction of another program follows the renamed store. After a failure the package is
// back under its own name, unless that fails, too; then keptPackage says where it is.
DBCResultCode restoreKeepingPackage(
    const QString& package, const QString& backup, QString* keptPackage);

} // namespace DBCPackageRestore

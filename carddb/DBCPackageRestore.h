// SPDX-License-Identifier: GPL-3.0-or-later
// Replaces a package with its backup.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

namespace DBCPackageRestore {

// Removes the package and then copies the backup into its place, in this order so that it works on
// a full disk. The backup itself stays. If this fails, it tries a second time. Returns Success or
// RestoreFailure. After a failure, or if the program is killed, the package may be missing, but the
// backup is complete, and a partial copy has only a hidden name. The caller records the restore in
// the journal.
DBCResultCode restore(const QString& package, const QString& backup);

// Does the same for a package that other programs have changed, but removes nothing of it: it
// renames the package to the next free backup name, stores that path in keptPackage, and copies the
// backup to the package's path. A program that has the store open goes on with the renamed store.
// If the copy fails, the package gets its own name back and keptPackage stays as it was; only if
// that fails, too, keptPackage says where the package is.
DBCResultCode restoreKeepingPackage(
    const QString& package, const QString& backup, QString* keptPackage);

} // namespace DBCPackageRestore

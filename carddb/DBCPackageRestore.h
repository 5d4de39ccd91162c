// SPDX-License-Identifier: GPL-3.0-or-later
// Puts a backup back in place of its package.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

namespace DBCPackageRestore {

// Removes the package first, so that this works on a full disk, then copies the backup, which stays
// where it is. Success or RestoreFailure; after a failure the package may be missing, and the
// backup is whole.
DBCResultCode restore(const QString& package, const QString& backup);

} // namespace DBCPackageRestore

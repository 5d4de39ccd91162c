// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageRestore.h"

#include "carddb/DBCBackupName.h"
#include "carddb/DBCPackageAttributes.h"
#include "carddb/DBCPackageCopy.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/copy/DBCFileManager.h"
#include "operation/log/DBCLog.h"
#include "system/DBCPathChecks.h"
#include "system/DBCRename.h"

#include <QDir>
#include <QFileInfo>

#include <exception>

using namespace Qt::StringLiterals;

namespace {

// There is a second attempt because one failed system call should not leave the user without a
// package.
constexpr int attempts = 2;

// A backup inside the package would be removed together with the package.
bool isRestorable(const QString& backup, const QString& package)
{
    return checkPackageAttributes(backup) == DBCResultCode::PackageUsable
        && !isSameOrInside(package, backup);
}

bool tryToRestore(const QString& package, const QString& backup)
try {
    if (!isWritableFolder(QFileInfo(package).path()) || !isRestorable(backup, package))
        return false;
    if (QFileInfo(package).isDir() && !DBCFileManager::defaultManager()->cleanFolder(package))
        return false;
    return DBCPackageCopy().copy(backup, package) == DBCPackageCopy::Outcome::Copied;
} catch (const std::exception&) {
    // Usually memory has run out; the next attempt may succeed.
    return false;
}

} // namespace

DBCResultCode DBCPackageRestore::restore(const QString& packagePath, const QString& backupPath)
{
    const QString package = QDir::cleanPath(packagePath);
    const QString backup = QDir::cleanPath(backupPath);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (tryToRestore(package, backup))
            return DBCResultCode::Success;
    }
    if (!isTaken(backup))
        DBCLog::error(getLocalString(u"IDS_LOG_WRN_FILE_NO_EXISTS"_s, {backup}));
    return DBCResultCode::RestoreFailure;
}

DBCResultCode DBCPackageRestore::restoreKeepingPackage(
    const QString& packagePath, const QString& backupPath, QString* keptPackage)
{
    const QString package = QDir::cleanPath(packagePath);
    const auto kept = DBCBackupName::firstFree(package);
    if (!isRestorable(QDir::cleanPath(backupPath), package) || !kept
        || !moveToFreeName(package, *kept))
        return DBCResultCode::RestoreFailure;
    const DBCResultCode code = restore(package, backupPath);
    if (code == DBCResultCode::Success || !moveToFreeName(*kept, package))
        *keptPackage = *kept;
    return code;
}

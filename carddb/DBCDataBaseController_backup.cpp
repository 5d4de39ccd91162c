// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"

#include "cardimage/DBCDiskUsage.h"
#include "datafile/DBCCommonFunction.h"
#include "datafile/DBCLocalizable.h"
#include "operation/DBCChecker.h"
#include "operation/DBCFileManager.h"
#include "operation/DBCHost.h"
#include "operation/DBCLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

namespace {

// The candidate with this number is made but never tried.
constexpr int lastBackupNumber = 10000;

// Also true for a link that leads nowhere: nothing can be copied to where one stands.
bool isTaken(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

bool isWritableFolder(const QString& path)
{
    return QFileInfo(path).isDir() && DBCHost::current().isWritable(path);
}

// The folder itself where a link to it was given, else the path without what says nothing.
QString withoutLink(const QString& package)
{
    const QString path = QDir::cleanPath(package);
    const QFileInfo info(path);
    return info.isSymLink() ? info.canonicalFilePath() : path;
}

bool isSameOrInside(const QString& path, const QString& folder)
{
    const QString inner = QFileInfo(path).canonicalFilePath();
    const QString outer = QFileInfo(folder).canonicalFilePath();
    return !outer.isEmpty() && (inner == outer || inner.startsWith(outer + u'/'));
}

bool copyFolder(const QString& source, const QString& target, IsAsync isAsync)
{
    const QFileInfo info(target);
    return DBCFileManager::defaultManager()->copyItemAtPath(
        source, info.path(), info.fileName(), 0, isAsync, nullptr);
}

bool copyFolderAsking(DBCCancelDelegate* delegate, const QString& source, const QString& target)
{
    DBCFileManager* manager = DBCFileManager::defaultManager();
    const auto putBack = qScopeGuard(
        [manager, previous = manager->delegate()] { manager->setDelegate(previous); });
    manager->setDelegate(delegate);
    return copyFolder(source, target, IsAsync::Yes);
}

void removeWhatStandsAt(const QString& path)
{
    if (!DBCFileManager::defaultManager()->cleanFolder(path))
        QFile::remove(path);
}

DBCResultCode checkSpaceForBackup(const QString& package, const QString& parent)
{
    DBCError error;
    const quint64 size = getSizeWithPath(package, &error);
    if (isFailure(error.code()))
        return error.code();
    return DBCChecker::checkDiskSizeIsEnough(parent, size + DBCDiskSpaceMargin)
        ? DBCResultCode::Success
        : DBCResultCode::NoSpaceForBackup;
}

bool isUsablePackage(const QString& path)
{
    return DBCChecker::checkDBAttributes(path) == DBCResultCode::PackageUsable;
}

bool isRestorable(const QString& backup, const QString& package)
{
    if (!isTaken(backup)) {
        DBCLog::error(getLocalString(QStringLiteral("IDS_LOG_WRN_FILE_NO_EXISTS"), {backup}));
        return false;
    }
    // Removing the package would take a backup inside it along.
    return isUsablePackage(backup) && !isSameOrInside(backup, package);
}

} // namespace

std::optional<QString> DBCDataBaseController::_generateBackupDBPath() const
{
    if (_strDBPath.isEmpty())
        return std::nullopt;

    const QFileInfo package(QDir::cleanPath(_strDBPath));
    const QString base = QDir::cleanPath(package.path() + u'/' + package.completeBaseName());
    const QString extension = package.suffix();
    QString candidate = QStringLiteral("%1_bak.%2").arg(base, extension);
    for (int number = 1; number <= lastBackupNumber; ++number) {
        if (!isTaken(candidate))
            return candidate;
        candidate = QStringLiteral("%1_bak%3.%2").arg(base, extension, QString::number(number));
    }
    return std::nullopt;
}

DBCResultCode DBCDataBaseController::backup()
{
    // From here on the package is the folder itself: a restore has to remove what stands at the
    // package's path, and nothing is ever removed through a link.
    const QString package = withoutLink(_strDBPath);
    if (!isUsablePackage(package))
        return DBCResultCode::BackupFailure;
    setDBPath(package);

    const std::optional<QString> target = _generateBackupDBPath();
    if (!target)
        return DBCResultCode::BackupFailure;
    const QString parent = QFileInfo(*target).path();
    if (!isWritableFolder(parent))
        return DBCResultCode::BackupFailure;
    const DBCResultCode spaceCode = checkSpaceForBackup(package, parent);
    if (spaceCode != DBCResultCode::Success)
        return spaceCode;

    if (!copyFolderAsking(_delegate, package, *target)) {
        removeWhatStandsAt(*target);
        return DBCResultCode::BackupFailure;
    }
    setBackupDBPath(*target);
    return DBCResultCode::Success;
}

DBCResultCode DBCDataBaseController::restore()
{
    if (_strBackupDBPath.isEmpty())
        return DBCResultCode::GeneralFailure;

    const QString package = QDir::cleanPath(_strDBPath);
    const QString backup = QDir::cleanPath(_strBackupDBPath);
    if (!isWritableFolder(QFileInfo(package).path()) || !isRestorable(backup, package))
        return DBCResultCode::RestoreFailure;

    DBCFileManager* manager = DBCFileManager::defaultManager();
    if (QFileInfo(package).isDir() && !manager->cleanFolder(package))
        return DBCResultCode::RestoreFailure;
    if (!copyFolder(backup, package, IsAsync::No)) {
        manager->cleanFolder(package);
        return DBCResultCode::RestoreFailure;
    }
    return DBCResultCode::Success;
}

DBCResultCode DBCDataBaseController::removeBackupDB()
{
    if (_strBackupDBPath.isEmpty() || !isTaken(_strBackupDBPath))
        return DBCResultCode::Success;
    if (!DBCFileManager::defaultManager()->cleanFolder(_strBackupDBPath))
        DBCLog::warning(QStringLiteral("Remove the database failure! Database Path:[%1]")
                            .arg(_strBackupDBPath));
    return DBCResultCode::Success;
}

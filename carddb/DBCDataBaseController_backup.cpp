// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"

#include "carddb/DBCBackupName.h"
#include "carddb/DBCPackageAttributes.h"
#include "carddb/DBCPackageChanges.h"
#include "carddb/DBCPackageJournal.h"
#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCPackageRestore.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "cardimage/DBCDiskUsage.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/copy/DBCFileManager.h"
#include "operation/log/DBCLog.h"
#include "system/DBCHiddenName.h"
#include "system/DBCPathChecks.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

using Outcome = DBCPackageCopy::Outcome;

DBCResultCode checkSpaceForBackup(const QString& package, const QString& parent)
{
    DBCError error;
    const quint64 size = getSizeWithPath(package, &error);
    if (error.code() == DBCResultCode::CancelledByUser)
        return error.code();
    if (isFailure(error.code())) {
        DBCLog::error(
            getLocalString(u"IDS_LOG_ERR_SIZE"_s, {package, error.localizedDescription()}));
        return error.code();
    }
    return hasFreeBytes(parent, size + DBCDiskSpaceMargin) ? DBCResultCode::Success
                                                           : DBCResultCode::NoSpaceForBackup;
}

bool isUsablePackage(const QString& path)
{
    return checkPackageAttributes(path) == DBCResultCode::PackageUsable;
}

} // namespace

std::optional<QString> DBCDataBaseController::_generateBackupDBPath() const
{
    return _strDBPath.isEmpty() ? std::nullopt : DBCBackupName::firstFree(_strDBPath);
}

DBCResultCode DBCDataBaseController::backup()
{
    // If the path is a link, work on the link's target from here on. A restore removes the package
    // folder, and this program never removes anything through a link.
    const QString package = DBCPackageLayout::withoutLink(_strDBPath);
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
    _isBackupCancelled = spaceCode == DBCResultCode::CancelledByUser;
    if (spaceCode != DBCResultCode::Success)
        return spaceCode;
    const Outcome outcome = backUpTo(*target);
    _isBackupCancelled = outcome == Outcome::Cancelled;
    return outcome == Outcome::Copied ? DBCResultCode::Success : DBCResultCode::BackupFailure;
}

DBCPackageCopy::Outcome DBCDataBaseController::backUpTo(const QString& target)
{
    _journal = DBCPackageJournal::begin(_strDBPath, target);
    if (!_journal) {
        DBCLog::error(
            getLocalString(u"IDS_LOG_ERR_JOURNAL"_s, {DBCHiddenName::journalOf(_strDBPath)}));
        return Outcome::Failed;
    }
    Outcome outcome = DBCPackageCopy(_delegate).copy(_strDBPath, target);
    if (outcome == Outcome::Copied && !_journal->enterImport(cardIDStart())) {
        DBCFileManager::defaultManager()->cleanFolder(target);
        outcome = Outcome::Failed;
    }
    if (outcome == Outcome::Copied)
        setBackupDBPath(target);
    else
        endImport();
    return outcome;
}

DBCResultCode DBCDataBaseController::restore()
{
    if (_strBackupDBPath.isEmpty())
        return DBCResultCode::GeneralFailure;
    // If the disk is too full to record this stage, the journal keeps the previous one, which makes
    // the next start ask the user the same question.
    if (_journal)
        (void)_journal->enter(DBCPackageJournal::Stage::Restore);
    const DBCResultCode code = restorePackage();
    if (_journal && code == DBCResultCode::Success)
        (void)_journal->enter(DBCPackageJournal::Stage::Restored);
    return code;
}

// Closes the store before isStoreInUse() opens and closes the store's file, because that would drop
// the locks of an open connection.
bool DBCDataBaseController::isChangedByOthers()
{
    const QString ownCards = cardIDStart();
    _managedObjectContext.reset();
    return isStoreInUse(_strDBPath)
        || changesSinceBackup(_strDBPath, _strBackupDBPath, ownCards).any();
}

DBCResultCode DBCDataBaseController::restorePackage()
{
    if (!isChangedByOthers())
        return DBCPackageRestore::restore(_strDBPath, _strBackupDBPath);
    QString kept;
    const DBCResultCode code
        = DBCPackageRestore::restoreKeepingPackage(_strDBPath, _strBackupDBPath, &kept);
    if (!kept.isEmpty())
        DBCLog::warning(getLocalString("IDS_LOG_INF_CHANGES_KEPT", {_strDBPath, kept}));
    return code;
}

void DBCDataBaseController::endImport()
{
    // A journal that stays is not worth a warning: the next start sees from its stage that nothing
    // is left to decide, and removes it.
    if (_journal && !_journal->end()) {
        DBCLog::info(
            getLocalString(u"IDS_LOG_INF_JOURNAL_STAYS"_s, {DBCHiddenName::journalOf(_strDBPath)}));
    }
    _journal.reset();
}

DBCResultCode DBCDataBaseController::removeBackupDB()
{
    if (_strBackupDBPath.isEmpty() || !isTaken(_strBackupDBPath))
        return DBCResultCode::Success;
    if (!DBCFileManager::defaultManager()->cleanFolder(_strBackupDBPath))
        DBCLog::warning(u"Remove the database failure! Database Path:[%1]"_s.arg(_strBackupDBPath));
    return DBCResultCode::Success;
}

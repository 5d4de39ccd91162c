// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCBackupChange.h"

#include "carddb/DBCBackupName.h"
#include "carddb/DBCPackageAttributes.h"
#include "carddb/DBCPackageBackups.h"
#include "carddb/DBCPackageCopy.h"
#include "carddb/DBCPackageGuard.h"
#include "carddb/DBCPackageJournal.h"
#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCPackageRecovery.h"
#include "carddb/DBCPackageRestore.h"
#include "carddb/DBCPackageVerifier.h"
#include "cardimage/DBCDiskUsage.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCProblemAt.h"
#include "operation/base/DBCError.h"
#include "operation/copy/DBCFileManager.h"
#include "operation/copy/DBCTreeComparison.h"
#include "system/DBCHiddenName.h"
#include "system/DBCHost.h"
#include "system/DBCPathChecks.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

using State = DBCPackageRecovery::State;
using Use = DBCPackageGuard::Use;
using Stage = DBCPackageJournal::Stage;
using Outcome = DBCBackupChange::Outcome;

DBCProblem journalProblem(const QString& package)
{
    return {getLocalString("IDS_LOG_ERR_JOURNAL", {DBCHiddenName::journalOf(package)}), package};
}

bool isLockedByMainApplication(const QString& package)
{
    return isLockedByAnother(DBCPackageLayout::lockFile(package));
}

} // namespace

DBCBackupChange::DBCBackupChange(const QString& package, const QString& name)
    : _package(DBCPackageLayout::withoutLink(package))
    , _name(name)
    , _backup(DBCPackageBackups::pathOf(package, name).value_or(QString()))
{
}

DBCBackupChange::~DBCBackupChange() = default;

DBCBackupChange::Result DBCBackupChange::restore(const Events& events)
{
    _events = events;
    if (auto reason = reasonNotToTouch())
        return {Outcome::Refused, *reason};
    if (auto reason = reasonNotToRestore())
        return {Outcome::Refused, *reason};
    if (auto failure = keepPackage())
        return {Outcome::Failed, *failure};
    if (auto failure = putInPlace())
        return {Outcome::Failed, *failure, _keptPackage};
    return {Outcome::Done, {}, _keptPackage};
}

DBCBackupChange::Result DBCBackupChange::remove()
{
    if (auto reason = reasonNotToTouch())
        return {Outcome::Refused, *reason};
    if (auto reason = reasonNotToRemove())
        return {Outcome::Refused, *reason};
    if (!DBCFileManager::defaultManager()->cleanFolder(_backup))
        return {Outcome::Failed, problemAt(_backup, "IDS_BACKUP_NOT_DELETED")};
    return {Outcome::Done};
}

DBCBackupChange::Problem DBCBackupChange::reasonNotToTouch()
{
    if (_backup.isEmpty())
        return DBCProblem {getLocalString("IDS_BACKUP_NO_SUCH", {_name, _package}), _package};
    // Look for an unfinished import before taking the two locks, because DBCPackageRecovery locks
    // the package itself.
    const State lastImport = DBCPackageRecovery(_package).state();
    if (lastImport == State::InUse)
        return problemAt(_package, "IDS_BACKUP_IN_USE");
    if (lastImport != State::Nothing)
        return problemAt(_package, "IDS_BACKUP_UNFINISHED");
    _packageGuard = DBCPackageGuard::hold(_package, Use::Changing);
    _backupGuard = DBCPackageGuard::hold(_backup, Use::Changing);
    for (const QString& path : {_package, _backup}) {
        if (isLockedByMainApplication(path))
            return problemAt(path, "IDS_BACKUP_IN_USE");
    }
    if (!_packageGuard || !_backupGuard)
        return problemAt(_packageGuard ? _backup : _package, "IDS_BACKUP_IN_USE");
    return std::nullopt;
}

DBCBackupChange::Problem DBCBackupChange::reasonNotToRestore() const
{
    if (auto damage = DBCPackageVerifier::verifyStore(_backup).firstProblem())
        return problemAt(_backup, "IDS_BACKUP_DAMAGED", {damage->text});
    // The restore removes the package before it copies the backup, so every file of the backup must
    // be readable. Comparing the backup with itself reads all of them.
    const QByteArray backup = QFile::encodeName(_backup);
    DBCTreeComparison reading;
    if (!reading.areEqual(backup, backup))
        return problemAt(
            _backup, "IDS_BACKUP_UNREADABLE", {QFile::decodeName(reading.difference())});
    if (checkPackageAttributes(_backup) != DBCResultCode::PackageUsable)
        return problemAt(_backup, "IDS_LOG_ERR_PACKAGE_ACCESS");
    return reasonNotToReplacePackage();
}

DBCBackupChange::Problem DBCBackupChange::reasonNotToReplacePackage() const
{
    const QString folder = QFileInfo(_package).path();
    if (!DBCHost::current().isWritable(folder))
        return problemAt(folder, "IDS_BACKUP_FOLDER_READ_ONLY");
    if (isTaken(_package) && !QFileInfo(_package).isDir())
        return problemAt(_package, "IDS_VERIFY_NO_FOLDER");
    // A package without a store may be replaced, because a restore is the way to repair it.
    const DBCResultCode state = checkPackageAttributes(_package);
    if (state != DBCResultCode::PackageUsable && state != DBCResultCode::PackageNotExist)
        return problemAt(_package, "IDS_LOG_ERR_PACKAGE_ACCESS");
    return checkSpace();
}

// A restore copies the present package, removes it, and copies the chosen backup last. So it never
// needs more extra space than the larger of the two takes.
DBCBackupChange::Problem DBCBackupChange::checkSpace() const
{
    quint64 needed = 0;
    for (const QString& path : {_package, _backup}) {
        DBCError error;
        needed = std::max(needed, getSizeWithPath(path, &error));
        if (error)
            return problemAt(path, "IDS_LOG_ERR_SIZE", {error.localizedDescription()});
    }
    const QString folder = QFileInfo(_package).path();
    if (!hasFreeBytes(folder, needed + DBCDiskSpaceMargin))
        return problemAt(folder, "IDS_BACKUP_NO_SPACE");
    return std::nullopt;
}

DBCBackupChange::Problem DBCBackupChange::reasonNotToRemove() const
{
    if (isAnythingElseSound())
        return std::nullopt;
    return problemAt(_backup, "IDS_BACKUP_LAST", {_package});
}

bool DBCBackupChange::isAnythingElseSound() const
{
    if (!DBCPackageVerifier::verifyStore(_package).firstProblem())
        return true;
    const DBCBackupList all = DBCPackageBackups::list(_package);
    return std::any_of(all.backups.begin(), all.backups.end(),
        [this](const DBCBackup& other) { return other.path != _backup && !other.isDamaged(); });
}

DBCBackupChange::Problem DBCBackupChange::keepPackage()
{
    if (!isTaken(_package))
        return std::nullopt;
    const std::optional<QString> target = DBCBackupName::firstFree(_package);
    if (!target)
        return problemAt(_package, "IDS_BACKUP_NOT_KEPT");
    send(DBCEventName::DatabaseBackupWillBegin);
    auto failure = copyPackageTo(*target);
    send(DBCEventName::DatabaseBackupDidFinished, !failure);
    if (!failure)
        _keptPackage = *target;
    return failure;
}

// The journal is there so that, if the program is killed during the copy, the next start removes
// what is left of the copy.
DBCBackupChange::Problem DBCBackupChange::copyPackageTo(const QString& target) const
{
    const auto journal = DBCPackageJournal::begin(_package, target);
    if (!journal)
        return journalProblem(_package);
    const auto outcome = DBCPackageCopy().copy(_package, target);
    if (!journal->end() || outcome != DBCPackageCopy::Outcome::Copied)
        return problemAt(_package, "IDS_BACKUP_NOT_KEPT");
    return std::nullopt;
}

// The journal names the chosen backup from the first change to the last. So if the program is
// killed in between, the next start asks the user whether to restore that backup.
DBCBackupChange::Problem DBCBackupChange::putInPlace() const
{
    const auto journal = DBCPackageJournal::begin(_package, _backup);
    if (!journal || !journal->enter(Stage::Restore)) {
        if (journal)
            (void)journal->end();
        return journalProblem(_package);
    }
    send(DBCEventName::DatabaseRestoreWillBegin);
    const bool isDone = DBCPackageRestore::restore(_package, _backup) == DBCResultCode::Success;
    const bool isBack = !isDone && bringBackWhatStoodThere();
    if (isDone || isBack) {
        (void)journal->enter(Stage::Restored);
        (void)journal->end();
    }
    send(DBCEventName::DatabaseRestoreDidFinished, isDone);
    if (isDone)
        return std::nullopt;
    return isBack ? problemAt(_backup, "IDS_BACKUP_PUT_BACK", {_package})
                  : problemAt(_backup, "IDS_BACKUP_RESTORE_FAILED", {_package});
}

bool DBCBackupChange::bringBackWhatStoodThere() const
{
    if (_keptPackage.isEmpty())
        return !isTaken(_package);
    return DBCPackageRestore::restore(_package, _keptPackage) == DBCResultCode::Success;
}

void DBCBackupChange::send(DBCEventName name, std::optional<bool> isOk) const
{
    if (_events)
        _events({.name = name, .operationIsOk = isOk});
}

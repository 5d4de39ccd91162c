// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCConverterController.h"

#include "carddb/DBCDataBaseController.h"
#include "cardimage/DBCDiskUsage.h"
#include "datafile/DBCFileReader.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/DBCChecker.h"
#include "operation/copy/DBCFileManager.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* importLabel = "IDS_LBL_IMPORT";
constexpr const char* backupLabel = "IDS_LBL_BACKUP";
constexpr const char* restoreLabel = "IDS_LBL_RESTORE";

// The message about a failed backup or restore names the backup's path, unless that is blank.
DBCError errorWithBackup(DBCResultCode code, const QString& backupPath)
{
    DBCError error(code);
    if (!DBCChecker::isBlank(backupPath))
        error.withPathName(backupPath);
    return error;
}

} // namespace

bool DBCConverterController::_doImport(DBCError* error)
{
    if (!error)
        return false;

    _logStart(importLabel, u" From:[%1]  To:[%2]"_s.arg(_fullPathFolder, _fullPathDB));
    std::unique_ptr<DBCDataBaseController> database;
    *error = _stopBefore(_prepareImport(&database));
    if (_isCancel(*error)) {
        if (database)
            _removeBackup(*database);
        *error = DBCError();
        return true;
    }
    if (*error) {
        _reportFailedImport(*error);
        return false;
    }

    *error = _guarded(
        u"Exception happended when importing.[%1]"_s, [&] { return _importRecords(*database); });
    if (*error)
        *error = _undoImport(*database, _stopBefore(*error));
    return !*error;
}

DBCError DBCConverterController::_prepareImport(std::unique_ptr<DBCDataBaseController>* database)
{
    if (auto error = _checkFolderVersion())
        return error;
    if (auto error = _checkSpaceForImport())
        return error;
    if (auto error = _openDatabase(database))
        return error;
    (*database)->setDelegate(this);
    return _backUp(**database);
}

DBCError DBCConverterController::_checkFolderVersion() const
{
    return DBCError::ifFailure(DBCChecker::checkVersionInfo(
        DBCCommonFunction::getVersionInfo(DBCInterchangeNames::versionFile(_fullPathFolder))));
}

DBCError DBCConverterController::_checkSpaceForImport() const
{
    DBCError error;
    const quint64 needed = estimateDiskSpaceForImport(&error) + DBCDiskSpaceMargin;
    if (error)
        return _isCancel(error) ? error : _sizeError(error);
    if (!_isFolder(_fullPathDB))
        return DBCError(DBCResultCode::FolderNotExist);
    if (!DBCChecker::checkDiskSizeIsEnough(_fullPathDB, needed))
        return DBCError(DBCResultCode::NoSpace);
    return {};
}

quint64 DBCConverterController::estimateDiskSpaceForImport(DBCError* error) const
{
    return error ? getSizeWithPath(_fullPathFolder, error) : 0;
}

DBCError DBCConverterController::_backUp(DBCDataBaseController& database)
{
    _send({.name = DBCEventName::DatabaseBackupWillBegin});
    _logStart(backupLabel);
    const DBCResultCode result = database.backup();
    if (database.isBackupCancelled())
        return DBCError(DBCResultCode::CancelledByUser);

    const QString backupPath = database.backupDBPath();
    _outcome.backupPath = backupPath;
    _logEnd(backupLabel);
    _logInfo(getLocalString(u"IDS_LOG_INF_VMDB_BACKUP_FILE_NAME"_s, {backupPath}));
    _send({.name = DBCEventName::DatabaseBackupDidFinished, .operationIsOk = !isFailure(result)});
    return isFailure(result) ? errorWithBackup(result, backupPath) : DBCError();
}

DBCError DBCConverterController::_importRecords(DBCDataBaseController& database)
{
    _send({.name = DBCEventName::ImportWillBegin});
    std::vector<DBCRecord> records;
    if (auto error = _loadRecords(&records))
        return error;
    _outcome.maxCount = static_cast<qint64>(records.size());
    _sendProgress(DBCEventName::ImportDataLoadDidFinished, records);
    if (auto error = _storeRecords(database, std::move(records)))
        return error;
    return _saveImport(database);
}

DBCError DBCConverterController::_loadRecords(std::vector<DBCRecord>* records) const
{
    const auto reader = _factories.createReader(DBCInterchangeNames::dataFile(_fullPathFolder));
    if (!reader)
        return DBCError(DBCResultCode::DataFileOpenFailure);
    DBCError error;
    if (auto loaded = reader->loadData(&error))
        *records = std::move(*loaded);
    return error;
}

DBCError DBCConverterController::_storeRecords(
    DBCDataBaseController& database, std::vector<DBCRecord> records)
{
    for (DBCRecord& waiting : records) {
        if (auto stop = _stopIfCancelled())
            return stop;
        // Moving the record out of the list frees the record's memory after this card, while the
        // memory that the database needs grows.
        const DBCRecord record = std::exchange(waiting, DBCRecord());
        if (!_isFolder(_fullPathFolder) || !_isFolder(_fullPathDB))
            return DBCError(DBCResultCode::FolderNotExist);
        DBCError error;
        database.addDataToDataBase(record, _fullPathFolder, &error);
        if (error)
            return error;
        ++_outcome.finishedCount;
        _sendProgress(DBCEventName::ImportIsRunning, records);
    }
    return _isStopRunning ? DBCError(DBCResultCode::CancelledByUser) : DBCError();
}

DBCError DBCConverterController::_saveImport(DBCDataBaseController& database)
{
    if (auto error = DBCError::ifFailure(database.save()))
        return error;
    _logInfo(_endLine("IDS_LOG_INF_END_WITH_INFO_IMPORT", importLabel));
    _sendProgress(DBCEventName::ImportDidFinished, {});
    // endImport() removes the journal, the small file beside the package that records how far the
    // import has come. It is called last, because an exception in a line above leads to a restore,
    // and the restore needs the journal.
    database.endImport();
    return {};
}

// Puts the database back after an error or a cancel. Returns the operation's error: the cause, or
// the restore's own error if the restore failed, or no error after a cancel.
DBCError DBCConverterController::_undoImport(DBCDataBaseController& database, const DBCError& cause)
{
    DBCError error = _isCancel(cause) ? DBCError() : cause;
    // If memory runs out in these lines, the restore below still takes place.
    (void)_guarded(u"Exception happended when restoring.[%1]"_s, [&] {
        if (error)
            _reportFailedImport(error);
        _send({.name = DBCEventName::DatabaseRestoreWillBegin});
        _logStart(restoreLabel);
        return DBCError();
    });
    const DBCResultCode result = database.restore();
    _logEnd(restoreLabel);
    _send({.name = DBCEventName::DatabaseRestoreDidFinished, .operationIsOk = !isFailure(result)});

    const QString backupPath = database.backupDBPath();
    if (isFailure(result)) {
        DBCError restoreError = errorWithBackup(result, backupPath);
        _handleImportError(restoreError);
        return restoreError;
    }
    if (_isStopRunning)
        _removeBackup(database);
    else
        database.endImport();
    return error;
}

void DBCConverterController::_removeBackup(DBCDataBaseController& database)
{
    // endImport() removes the journal before the backup is removed. Otherwise, if the program were
    // killed in between, the journal would lead the next start to a half-removed backup.
    database.endImport();
    DBCFileManager::defaultManager()->cleanFolder(database.backupDBPath());
    _outcome.backupPath.clear();
}

void DBCConverterController::_reportFailedImport(const DBCError& error)
{
    _handleImportError(error);
    _logInfo(_endLine("IDS_LOG_INF_END_WITH_INFO_IMPORT", importLabel));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"

#include "carddb/DBCPackageJournal.h"
#include "carddb/DBCPackageLayout.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "carddb/store/DBCManagedObjectModel.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCLog.h"
#include "system/DBCDiskFlush.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <QFile>

#include <cstdio>
#include <exception>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int noDescriptor = -1;
constexpr mode_t lockFileCreationMode = S_IRWXU;
constexpr mode_t lockFileMode = S_IRWXU | S_IRWXG | S_IRWXO;

void logFailedSave(const std::exception& exception, const QString& package)
{
    const QString reason = QString::fromLocal8Bit(exception.what());
    DBCLog::debug(u"Exception happended.[%1]"_s.arg(reason));
    DBCLog::error(getLocalString(
        u"IDS_LOG_ERR_STORE_SAVE"_s, {DBCPackageLayout::storeFile(package), reason}));
}

// Whether the open file is the new lock file. Between the removal of the old lock file and the
// opening of the new one, another program may have put a different file at that path, which must
// not be changed.
bool isOwnLockFile(int descriptor)
{
    struct stat status { };
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid()
        && status.st_nlink == 1;
}

} // namespace

DBCDataBaseController::DBCDataBaseController() = default;

DBCDataBaseController::~DBCDataBaseController()
{
    static_cast<void>(_unlock());
}

std::unique_ptr<DBCDataBaseController> DBCDataBaseController::initDBwithPath(const QString& path)
{
    if (path.isEmpty())
        return nullptr;
    auto controller = std::make_unique<DBCDataBaseController>();
    controller->setDBPath(path);
    return controller->managedObjectContext() ? std::move(controller) : nullptr;
}

const DBCManagedObjectModel* DBCDataBaseController::managedObjectModel()
{
    if (!_managedObjectModel)
        _managedObjectModel = std::make_unique<DBCManagedObjectModel>();
    return _managedObjectModel.get();
}

DBCManagedObjectContext* DBCDataBaseController::managedObjectContext()
{
    if (_managedObjectContext)
        return _managedObjectContext.get();
    if (_strDBPath.isEmpty())
        return nullptr;
    _managedObjectContext = DBCManagedObjectContext::open(
        DBCPackageLayout::storeFile(_strDBPath), *managedObjectModel());
    // Create the lock file only after the store has opened, so that nothing is written into a
    // folder that is no package.
    if (_managedObjectContext && isFailure(_lock()))
        _managedObjectContext.reset();
    return _managedObjectContext.get();
}

DBCResultCode DBCDataBaseController::_lock()
{
    if (_strDBPath.isEmpty())
        return DBCResultCode::GeneralFailure;
    const QByteArray path = QFile::encodeName(DBCPackageLayout::lockFile(_strDBPath));
    // Remove an existing lock file, whoever made it: a file left by a program that died must not
    // keep anybody out. Before this, the driver has checked whether another program is using the
    // package.
    std::remove(path.constData());
    _ilockFile
        = open(path.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, lockFileCreationMode);
    // Change the mode through the descriptor, because the path may lead to another file by now.
    if (_ilockFile != noDescriptor && isOwnLockFile(_ilockFile)
        && fchmod(_ilockFile, lockFileMode) == 0 && flock(_ilockFile, LOCK_EX | LOCK_NB) == 0)
        return DBCResultCode::Success;
    // The descriptor stays in _ilockFile, so that the destructor closes it.
    DBCLog::debug(u"There is a lock failure of the Database!"_s);
    return DBCResultCode::DatabaseLockFailure;
}

DBCResultCode DBCDataBaseController::_unlock()
{
    if (_ilockFile == noDescriptor)
        return DBCResultCode::Success;
    if (flock(_ilockFile, LOCK_UN) == 0 && close(_ilockFile) == 0) {
        _ilockFile = noDescriptor;
        return DBCResultCode::Success;
    }
    DBCLog::debug(u"There is a Unlock failure of the Database!"_s);
    const QString path = DBCPackageLayout::lockFile(_strDBPath);
    if (!_strDBPath.isEmpty() && QFile::exists(path))
        std::remove(QFile::encodeName(path).constData());
    return DBCResultCode::DatabaseUnlockFailure;
}

DBCResultCode DBCDataBaseController::save()
{
    DBCManagedObjectContext* context = managedObjectContext();
    if (!context)
        return DBCResultCode::GeneralFailure;
    // Flush the PDFs and attachments before the cards that name them are committed. So even after a
    // power cut, no card names a missing file.
    if (context->hasInsertedCards() && !DBCDiskFlush::fileSystemOf(_strDBPath)) {
        DBCLog::error(getLocalString(u"IDS_LOG_ERR_DISK_FLUSH"_s, {_strDBPath}));
        return DBCResultCode::DatabaseSaveFailure;
    }
    try {
        context->save();
    } catch (const SQLite::Exception& exception) {
        // The user stopped the save, which is no error and is therefore not logged.
        if (exception.getErrorCode() != SQLITE_INTERRUPT)
            logFailedSave(exception, _strDBPath);
        return DBCResultCode::DatabaseSaveFailure;
    } catch (const std::exception& exception) {
        logFailedSave(exception, _strDBPath);
        return DBCResultCode::DatabaseSaveFailure;
    }
    return DBCResultCode::Success;
}

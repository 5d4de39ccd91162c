// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageCopy.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCCancelDelegate.h"
#include "operation/copy/DBCFileManager.h"
#include "operation/copy/DBCTreeComparison.h"
#include "operation/log/DBCLog.h"
#include "system/DBCDiskFlush.h"
#include "system/DBCHiddenName.h"
#include "system/DBCRename.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

// Whether this is SQLite's index of a write-ahead log. It may differ between the package and its
// copy, because every reader writes into it and SQLite rebuilds it when needed.
bool isIndexOfLog(const QByteArray& path)
{
    return path.endsWith("-shm");
}

} // namespace

// Passes the questions that a copy asks on to the delegate, and remembers whether the last answer
// was to stop.
class DBCPackageCopy::CancelWatch : public DBCCancelDelegate {
public:
    explicit CancelWatch(DBCCancelDelegate* delegate)
        : _delegate(delegate)
    {
    }

    bool isCancelled() const { return _isCancelled; }

    bool checkIsNeedToConfirmCancelOperation() override
    {
        _isCancelled = _delegate && _delegate->checkIsNeedToConfirmCancelOperation();
        return _isCancelled;
    }
    bool fileManager(
        const DBCFileManager* manager, const QString& path, const QString& toPath) override
    {
        _isCancelled = _delegate && !_delegate->fileManager(manager, path, toPath);
        return !_isCancelled;
    }

private:
    DBCCancelDelegate* _delegate; // null if nobody is to be asked
    bool _isCancelled = false;
};

DBCPackageCopy::Outcome DBCPackageCopy::copy(const QString& source, const QString& target)
{
    CancelWatch watch(_delegate);
    cleanUpBeside(target);
    if (copyWhole(source, target, watch))
        return Outcome::Copied;
    cleanUpBeside(target);
    return watch.isCancelled() ? Outcome::Cancelled : Outcome::Failed;
}

bool DBCPackageCopy::copyWhole(const QString& source, const QString& target, CancelWatch& watch)
{
    const QString unfinished = DBCHiddenName::unfinishedCopyOf(target);
    if (!copyFiles(source, unfinished, watch) || !isSame(source, unfinished, watch)
        || !DBCDiskFlush::fileSystemOf(unfinished) || !moveToFreeName(unfinished, target))
        return false;
    if (DBCDiskFlush::folder(QFileInfo(target).path()))
        return true;
    DBCFileManager::defaultManager()->cleanFolder(target);
    return false;
}

void DBCPackageCopy::cleanUpBeside(const QString& target)
{
    for (const QString& path :
        {DBCHiddenName::unfinishedCopyOf(target), DBCHiddenName::discarded(target)}) {
        // A failure here does no harm: the folders are hidden, and the next copy tries again to
        // remove them.
        std::error_code ignored;
        std::filesystem::remove_all(QFile::encodeName(path).toStdString(), ignored);
    }
}

bool DBCPackageCopy::copyFiles(const QString& source, const QString& target, CancelWatch& watch)
{
    DBCFileManager* manager = DBCFileManager::defaultManager();
    const auto putBack = qScopeGuard(
        [manager, previous = manager->delegate()] { manager->setDelegate(previous); });
    manager->setDelegate(&watch);
    const QFileInfo info(target);
    return manager->copyItemAtPath(source, info.path(), info.fileName(), 0, IsAsync::Yes, nullptr);
}

bool DBCPackageCopy::isSame(const QString& source, const QString& copy, CancelWatch& watch)
{
    DBCTreeComparison comparison({
        .mayGoOn = [&] { return !watch.checkIsNeedToConfirmCancelOperation(); },
        .mayDiffer = isIndexOfLog,
    });
    if (comparison.areEqual(QFile::encodeName(source), QFile::encodeName(copy)))
        return true;
    if (!watch.isCancelled()) {
        DBCLog::error(getLocalString(
            u"IDS_LOG_ERR_COPY_DIFFERS"_s, {source, QFile::decodeName(comparison.difference())}));
    }
    return false;
}

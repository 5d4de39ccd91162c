// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/copy/DBCFileManager.h"

#include "operation/base/DBCCancelDelegate.h"
#include "operation/copy/DBCTreeCopy.h"
#include "system/DBCHiddenName.h"
#include "system/DBCPathChecks.h"
#include "system/DBCPathNames.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <optional>
#include <system_error>

namespace {

// A path with a trailing slash refers to a link's target instead of the link.
QString withoutTrailingSlashes(QString path)
{
    while (path.endsWith(u'/'))
        path.chop(1);
    return path;
}

QString nameForCopy(const QString& path, const QString& dstFileName)
{
    return dstFileName.isEmpty() ? QFileInfo(withoutTrailingSlashes(path)).fileName() : dstFileName;
}

bool isName(const QString& name)
{
    return !name.isEmpty() && name != u"." && name != u".." && !name.contains(u'/');
}

// Returns the full path of the copy, or std::nullopt if source and destination do not allow a copy.
std::optional<QString> targetOfCopy(
    const QString& path, const QString& toPath, const QString& dstFileName)
{
    const QString name = nameForCopy(path, dstFileName);
    if (path.isEmpty() || toPath.isEmpty() || !isName(name))
        return std::nullopt;
    if (!QFileInfo::exists(path) || !QFileInfo(toPath).isDir())
        return std::nullopt;
    // The copy of a folder into itself would copy its own growing result and never end.
    const QString& source = path;
    if (isSameOrInside(source, toPath))
        return std::nullopt;
    return withoutTrailingSlashes(toPath) + u'/' + name;
}

bool removeAll(const std::filesystem::path& path)
{
    std::error_code error;
    std::filesystem::remove_all(path, error);
    return !error;
}

} // namespace

DBCFileManager* DBCFileManager::defaultManager()
{
    static auto* const manager = new DBCFileManager;
    return manager;
}

bool DBCFileManager::copyItemAtPath(const QString& path, const QString& toPath,
    const QString& dstFileName, quint32 options, IsAsync isAsync, DBCError* /*error*/)
{
    const std::optional<QString> target = targetOfCopy(path, toPath, dstFileName);
    if (!target || options != 0)
        return false;
    const QByteArray from = QFile::encodeName(path);
    const QByteArray to = QFile::encodeName(*target);
    return isAsync == IsAsync::Yes ? copyWhileAsking(from, to) : DBCTreeCopy().copy(from, to);
}

bool DBCFileManager::copyWhileAsking(const QByteArray& source, const QByteArray& target)
{
    DBCFileOperationStatus outcome;
    DBCTreeCopy copy({
        .beforeItem =
            [this](const QString& from, const QString& to) {
                return _delegate == nullptr || _delegate->fileManager(this, from, to);
            },
        .atInterval =
            [this, &outcome](const DBCFileOperationStatus& status) {
                callbackFileOperationStatus(status, &outcome);
                return _delegate == nullptr || !_delegate->checkIsNeedToConfirmCancelOperation();
            },
        .interval = std::chrono::duration<double>(_statusInterval),
    });
    if (!copy.copy(source, target))
        return false;
    callbackFileOperationStatus(copy.status(), &outcome);
    // Fewer bytes than announced mean that a file shrank while it was read, so the copy is not
    // reliable.
    return outcome.stage == DBCFileOperationStatus::stageComplete
        && copy.status().bytesComplete >= copy.status().totalBytes;
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): called on the shared instance
bool DBCFileManager::cleanFolder(const QString& path)
{
    if (!isFolderNotLink(withoutTrailingSlashes(path)))
        return false;
    const std::filesystem::path folder = nativePath(withoutTrailingSlashes(path));
    const std::filesystem::path discarded = nativePath(DBCHiddenName::discarded(path));
    // Rename the folder first. Then, if the program is killed in the middle, the folder's own name
    // leads to the complete folder or to nothing.
    std::error_code error;
    std::filesystem::remove_all(discarded, error);
    std::filesystem::rename(folder, discarded, error);
    if (error)
        return removeAll(folder);
    if (removeAll(discarded))
        return true;
    // Give what is left the folder's own name back, so that the user can find it.
    std::filesystem::rename(discarded, folder, error);
    return false;
}

void callbackFileOperationStatus(
    const DBCFileOperationStatus& reported, DBCFileOperationStatus* context)
{
    if (context != nullptr && reported.stage == DBCFileOperationStatus::stageComplete)
        context->stage = reported.stage;
}

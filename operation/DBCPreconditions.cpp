// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCPreconditions.h"

#include "carddb/DBCPackageLayout.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "operation/DBCChecker.h"
#include "operation/DBCUnfinishedImport.h"
#include "operation/copy/DBCFileManager.h"
#include "operation/log/DBCLog.h"
#include "operation/log/DBCMainApplication.h"
#include "operation/log/DBCPropertyList.h"
#include "operation/messages/DBCMessage.h"
#include "system/DBCHost.h"
#include "system/DBCMountTable.h"
#include "system/DBCPathChecks.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

bool isFolder(const QString& path)
{
    return !path.isEmpty() && QFileInfo(path).isDir();
}

QString joined(const QString& folder, const QString& name)
{
    return folder.isEmpty() || folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

// Returns std::nullopt if the main application is not installed or its version cannot be read.
std::optional<QString> mainApplicationVersion(const DBCHost& host)
{
    const QString list = DBCMainApplication::versionList(host.applicationsFolder);
    if (!isFolder(DBCMainApplication::bundle(host.applicationsFolder)) || !QFileInfo(list).isFile())
        return std::nullopt;
    const std::optional<QVariantMap> entries = DBCPropertyList::read(list);
    const QString key = u"CFBundleShortVersionString"_s;
    return entries && entries->contains(key) ? std::optional(entries->value(key).toString())
                                             : std::nullopt;
}

// Returns the key of the log text that says why a package cannot be used. Message 301 does not say
// why.
const char* reasonKey(DBCResultCode state)
{
    switch (state) {
    case DBCResultCode::PackageNotExist:
        return "IDS_LOG_ERR_PACKAGE_NO_STORE";
    case DBCResultCode::PackageInvalid:
        return "IDS_LOG_ERR_PACKAGE_UNREADABLE";
    case DBCResultCode::PackageLocked:
        return "IDS_LOG_ERR_PACKAGE_IMMUTABLE";
    case DBCResultCode::PackageReadOnly:
        return "IDS_LOG_ERR_PACKAGE_READ_ONLY";
    default:
        return "IDS_LOG_ERR_PACKAGE_ACCESS";
    }
}

} // namespace

DBCPreconditions::DBCPreconditions(
    const QString& dataPath, const QString& databasePath, OperationType operationType)
    : _dataPath(dataPath)
    , _databasePath(databasePath)
    , _operationType(operationType)
    , _exportFolder(DBCInterchangeNames::exportFolder(dataPath))
{
}

bool DBCPreconditions::_checkPrecondition()
{
    _refusal = Refusal::None;
    if (!checkMainApplicationVersion() || !ask(DBCQuestionId::BeginOperation))
        return false;
    if (!settleLastImport())
        return false;
    // The operation's source is checked before its target.
    return isImport() ? _dataPathCheck() && _vmdbPathCheck() : _vmdbPathCheck() && _dataPathCheck();
}

bool DBCPreconditions::settleLastImport()
{
    // A later check refuses an empty path with a message of its own.
    if (_databasePath.isEmpty())
        return true;
    switch (settleUnfinishedImport(_databasePath)) {
    case DBCSettlement::NothingToSettle:
    case DBCSettlement::Restored:
    case DBCSettlement::Kept:
        return true;
    case DBCSettlement::InUse:
        return refuse(isImport() ? 304 : 203, {_databasePath});
    case DBCSettlement::NotAnswered:
    case DBCSettlement::Failed:
        break;
    }
    _refusal = Refusal::ByCheck;
    return false;
}

bool DBCPreconditions::checkMainApplicationVersion()
{
    const DBCHost& host = DBCHost::current();
    const std::optional<QString> version = mainApplicationVersion(host);
    if (!version || QStringView(*version).compare(DBCMainApplication::minimumVersion) >= 0)
        return true;
    return refuse(104, {*version, DBCMainApplication::bundle(host.applicationsFolder)});
}

bool DBCPreconditions::_dataPathCheck()
{
    return isImport() ? checkImportFolder() : checkExportFolder();
}

bool DBCPreconditions::checkImportFolder()
{
    if (!DBCChecker::isValidPathLength(expandedPath(_dataPath), dataPathLimit))
        return refuse(110, {_dataPath});
    if (!isFolder(_dataPath))
        return refuse(308, {_dataPath});
    if (_networkPathCheck(_dataPath) != DBCResultCode::Success)
        return refuse(105, {_dataPath});
    const QString dataFile = joined(_dataPath, DBCInterchangeNames::dataFileName());
    const QFileInfo file(dataFile);
    return (file.exists() && !file.isDir()) || refuse(309, {dataFile});
}

bool DBCPreconditions::checkExportFolder()
{
    if (!DBCChecker::isValidPathLength(expandedPath(_exportFolder), dataPathLimit))
        return refuse(110, {_exportFolder});
    if (!isFolder(_dataPath))
        return refuse(202, {_dataPath});
    if (_networkPathCheck(_dataPath) != DBCResultCode::Success)
        return refuse(105, {_dataPath});
    if (isFolder(_exportFolder) && !removeOldExportFolder())
        return false;
    if (!DBCChecker::checkDiskSizeIsEnough(_dataPath, DBCDiskSpaceMargin))
        return refuse(103);
    return createExportFolder();
}

bool DBCPreconditions::removeOldExportFolder()
{
    if (!ask(DBCQuestionId::ReplaceExport, {_exportFolder}))
        return false;
    // The user has agreed to remove an old export, but not the package. If the package lies in the
    // export's folder, the folder is therefore not removed.
    const bool holdsThePackage = isSameOrInside(_exportFolder, _databasePath);
    return (!holdsThePackage && DBCFileManager::defaultManager()->cleanFolder(_exportFolder))
        || refuse(204, {_exportFolder});
}

bool DBCPreconditions::createExportFolder()
{
    const QString folders[] {_exportFolder, DBCInterchangeNames::imageFolder(_exportFolder),
        DBCInterchangeNames::attachmentFolder(_exportFolder)};
    for (const QString& folder : folders) {
        if (!QDir().mkdir(folder))
            return refuse(204, {folder});
    }
    return true;
}

bool DBCPreconditions::_vmdbPathCheck()
{
    const QString store = DBCPackageLayout::storeFile(_databasePath);
    if (!DBCChecker::isValidPathLength(expandedPath(store), databasePathLimit))
        return refuse(109, {_databasePath});
    if (!isFolder(_databasePath))
        return refuse(isImport() ? 302 : 201, {_databasePath});
    if (_networkPathCheck(_databasePath) != DBCResultCode::Success)
        return refuse(105, {_databasePath});
    return checkPackage();
}

bool DBCPreconditions::checkPackage()
{
    if (isImport() && !DBCChecker::checkDiskSizeIsEnough(_databasePath, DBCDiskSpaceMargin))
        return refuse(301);
    const DBCResultCode state = DBCChecker::checkDBAttributes(_databasePath);
    if (state != DBCResultCode::PackageUsable) {
        DBCLog::error(getLocalString(reasonKey(state), {_databasePath}));
        return refuse(301);
    }
    if (DBCChecker::checkDBFileISLocked(DBCPackageLayout::lockFile(_databasePath)))
        return refuse(isImport() ? 304 : 203, {_databasePath});
    return true;
}

DBCResultCode DBCPreconditions::_networkPathCheck(const QString& path)
{
    const QString canonical = path.isEmpty() ? QString() : QFileInfo(path).canonicalFilePath();
    const std::optional<DBCMountTable> table = DBCMountTable::read(DBCHost::current().mountTable);
    if (canonical.isEmpty() || !table)
        return DBCResultCode::GeneralFailure;
    const std::optional<DBCMountedVolume> volume = table->volumeOf(canonical);
    const bool isNetwork = volume ? volume->isNetwork() : isOnNetworkFileSystem(canonical);
    return isNetwork ? DBCResultCode::GeneralFailure : DBCResultCode::Success;
}

bool DBCPreconditions::refuse(quint32 number, const DBCMessageArguments& arguments)
{
    _refusal = Refusal::ByCheck;
    DBCMessage::ShowErrorMessage(number, arguments);
    return false;
}

bool DBCPreconditions::ask(DBCQuestionId question, const DBCMessageArguments& arguments)
{
    const DBCAnswer answer = DBCMessage::ShowInfoMessage(
        DBCMessage::keyOf(question), DBCButton::Yes, DBCButton::No, QString(), arguments);
    if (answer == DBCAnswer::Default)
        return true;
    _refusal = answer == DBCAnswer::NotShown ? Refusal::ByCheck : Refusal::ByUser;
    return false;
}

QString DBCPreconditions::expandedPath(const QString& path)
{
    const bool namesHome = path == u"~" || path.startsWith(u"~/"_s);
    return namesHome ? QDir::homePath() + path.sliced(1) : path;
}

QString DBCPreconditions::_getDefaultDBPath()
{
    const QString own = QDir::homePath() + u"/Library/Application Support"_s;
    const QString support = isFolder(own)
        ? own
        : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return support.isEmpty() ? QDir::homePath()
                             : joined(support, DBCMainApplication::name.toString());
}

std::optional<QString> DBCPreconditions::_getDefaultDataFilePath()
{
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    return desktop.isEmpty() ? std::nullopt : std::optional(desktop);
}

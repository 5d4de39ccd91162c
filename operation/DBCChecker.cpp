// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCChecker.h"

#include "carddb/DBCPackageAttributes.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "operation/log/DBCMainApplication.h"
#include "system/DBCHost.h"
#include "system/DBCPathChecks.h"
#include "text/DBCCharacterSets.h"

DBCResultCode DBCChecker::checkDBAttributes(const QString& path)
{
    return checkPackageAttributes(path);
}

bool DBCChecker::checkDBFileISLocked(const QString& path)
{
    return isLockedByAnother(path);
}

bool DBCChecker::checkDiskSizeIsEnough(const QString& path, quint64 fileSize)
{
    return hasFreeBytes(path, fileSize);
}

bool DBCChecker::checkVelmoraIsLaunched()
{
    return DBCMainApplication::isRunning();
}

bool DBCChecker::isBlank(const QString& text)
{
    return ::isBlank(text);
}

bool DBCChecker::checkAppLocationIsCorrect()
{
    return DBCMainApplication::standsBesideThisProgram();
}

DBCResultCode DBCChecker::checkVersionInfo(const std::optional<DBCVersionInfo>& versionInfo)
{
    return ::checkVersionInfo(versionInfo);
}

bool DBCChecker::isMacOSXVersionAbove(qint32 version)
{
    const std::optional<qint32> system = DBCHost::current().systemVersion();
    return system && *system >= version;
}

bool DBCChecker::isValidPathLength(const QString& path, quint32 lengthLimited)
{
    return isPathWithin(path, lengthLimited);
}

bool DBCChecker::isValidAttachmentForExport(const QString& path)
{
    return DBCInterchangeNames::isAttachmentName(path);
}

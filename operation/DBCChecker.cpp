// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCChecker.h"

#include "carddb/DBCPackageLayout.h"
#include "datafile/DBCCommonFunction.h"
#include "datafile/DBCInterchangeNames.h"
#include "operation/DBCDescriptor.h"
#include "operation/DBCHost.h"
#include "operation/DBCMainApplication.h"
#include "text/DBCCharacterSets.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <vector>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace {

// What systems that may receive an export refuse in file names.
constexpr QStringView refusedAttachmentCharacters = u"/:\\*?\"<>|";

struct Rights {
    bool readable;
    bool writable;
};

Rights rightsTo(const QString& path)
{
    const DBCHost& host = DBCHost::current();
    return {host.isReadable(path), host.isWritable(path)};
}

QFileInfo fileAt(const QString& path)
{
    return QFileInfo(QDir::cleanPath(path));
}

// The package, its store and those of its two folders that exist, in this order.
std::vector<QString> partsOfPackage(const QString& package)
{
    std::vector<QString> parts {package, DBCPackageLayout::storeFile(package)};
    for (const QString& folder :
        {DBCPackageLayout::imagesFolder(package), DBCPackageLayout::filesFolder(package)}) {
        if (QFileInfo::exists(folder))
            parts.push_back(folder);
    }
    return parts;
}

// PackageUsable when no part is immutable.
DBCResultCode checkImmutable(const std::vector<QString>& parts)
{
    for (const QString& part : parts) {
        const std::optional<bool> immutable = DBCHost::current().isImmutable(part);
        if (!immutable)
            return DBCResultCode::GeneralFailure;
        if (*immutable)
            return DBCResultCode::PackageLocked;
    }
    return DBCResultCode::PackageUsable;
}

DBCResultCode checkAccessRights(const std::vector<QString>& parts)
{
    std::vector<Rights> rights;
    std::transform(parts.begin(), parts.end(), std::back_inserter(rights), rightsTo);
    const auto isUsable = [](Rights part) { return part.readable && part.writable; };
    const auto isReadOnly = [](Rights part) { return part.readable && !part.writable; };
    const auto isReadable = [](Rights part) { return part.readable; };

    if (std::all_of(rights.begin(), rights.end(), isUsable))
        return DBCResultCode::PackageUsable;
    // The package's own rights do not count here: cards live in its parts.
    if (std::all_of(std::next(rights.begin()), rights.end(), isReadOnly))
        return DBCResultCode::PackageReadOnly;
    if (!std::all_of(rights.begin(), rights.end(), isReadable))
        return DBCResultCode::PackageInvalid;
    return DBCResultCode::PackageOtherRights;
}

} // namespace

DBCResultCode DBCChecker::checkDBAttributes(const QString& path)
{
    if (path.isEmpty())
        return DBCResultCode::GeneralFailure;
    if (fileAt(path).suffix().toLower() != QStringView(DBCPackageLayout::extension))
        return DBCResultCode::PackageInvalid;
    if (!QFileInfo::exists(path) || !QFileInfo::exists(DBCPackageLayout::storeFile(path)))
        return DBCResultCode::PackageNotExist;

    const std::vector<QString> parts = partsOfPackage(path);
    const DBCResultCode immutable = checkImmutable(parts);
    return immutable == DBCResultCode::PackageUsable ? checkAccessRights(parts) : immutable;
}

bool DBCChecker::checkDBFileISLocked(const QString& path)
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return false;
    const DBCDescriptor file(
        open(QFile::encodeName(path).constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    if (!file || flock(file.get(), LOCK_EX | LOCK_NB) != 0)
        return true;
    flock(file.get(), LOCK_UN);
    return false;
}

bool DBCChecker::checkDiskSizeIsEnough(const QString& path, quint64 fileSize)
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return false;
    const std::optional<quint64> free = DBCHost::current().freeBytes(path);
    return free && *free >= fileSize && *free != 0;
}

bool DBCChecker::isTaken(const QString& path)
{
    struct stat status = {};
    if (lstat(QFile::encodeName(path).constData(), &status) == 0)
        return true;
    return errno != ENOENT && errno != ENOTDIR && errno != EACCES && errno != ENAMETOOLONG;
}

bool DBCChecker::isWritableFolder(const QString& path)
{
    return QFileInfo(path).isDir() && DBCHost::current().isWritable(path);
}

bool DBCChecker::checkVelmoraIsLaunched()
{
    return DBCHost::current().runningApplications().contains(DBCMainApplication::name);
}

bool DBCChecker::isBlank(const QString& text)
{
    return trimmedBy(text, blankAndNewLineCharacters()).isEmpty();
}

bool DBCChecker::checkAppLocationIsCorrect()
{
    const DBCHost& host = DBCHost::current();
    if (host.applicationsFolder.isEmpty())
        return false;
    return DBCMainApplication::folder(host.applicationsFolder) == host.programFolder
        && QFileInfo(DBCMainApplication::bundle(host.applicationsFolder)).isDir();
}

DBCResultCode DBCChecker::checkVersionInfo(const std::optional<DBCVersionInfo>& versionInfo)
{
    const QString key = QString::fromLatin1(DBCCommonFunction::versionInfoKey);
    if (!versionInfo || !versionInfo->contains(key))
        return DBCResultCode::VersionFileMismatch;
    const QString line = versionInfo->value(key);
    const qsizetype tab = line.indexOf(u'\t');
    if (tab < 0)
        return DBCResultCode::VersionFileMismatch;
    if (QStringView(line).first(tab) == QStringView(DBCInterchangeNames::productCode))
        return DBCResultCode::VersionFileRefusedProduct;
    return QStringView(line).sliced(tab + 1) == QStringView(DBCInterchangeNames::productVersion)
        ? DBCResultCode::Success
        : DBCResultCode::VersionFileMismatch;
}

bool DBCChecker::isMacOSXVersionAbove(qint32 version)
{
    const std::optional<qint32> system = DBCHost::current().systemVersion();
    return system && *system >= version;
}

bool DBCChecker::isValidPathLength(const QString& path, quint32 lengthLimited)
{
    return !path.isEmpty() && QFile::encodeName(path).size() <= qint64(lengthLimited);
}

bool DBCChecker::isValidAttachmentForExport(const QString& path)
{
    const QString name = path.isEmpty() ? QString() : fileAt(path).fileName();
    return !name.isEmpty() && !name.startsWith(u'.')
        && std::none_of(name.begin(), name.end(),
            [](QChar c) { return refusedAttachmentCharacters.contains(c); });
}

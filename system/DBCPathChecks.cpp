// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCPathChecks.h"

#include "system/DBCDescriptor.h"
#include "system/DBCHost.h"
#include "system/DBCPathNames.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

bool hasFreeBytes(const QString& path, quint64 bytes)
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return false;
    const std::optional<quint64> free = DBCHost::current().freeBytes(path);
    return free && *free >= bytes && *free != 0;
}

bool isTaken(const QString& path)
{
    struct stat status = {};
    if (lstat(QFile::encodeName(path).constData(), &status) == 0)
        return true;
    return errno != ENOENT && errno != ENOTDIR && errno != EACCES && errno != ENAMETOOLONG;
}

bool isWritableFolder(const QString& path)
{
    return QFileInfo(path).isDir() && DBCHost::current().isWritable(path);
}

bool isFolderNotLink(const QString& path)
{
    struct stat status = {};
    return lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isSameOrInside(const QString& folder, const QString& path)
{
    const QString outer = QFileInfo(folder).canonicalFilePath();
    const QString inner = QFileInfo(path).canonicalFilePath();
    return !outer.isEmpty() && (inner == outer || pathBelow(outer, inner));
}

bool isLockedByAnother(const QString& path)
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

bool isPathWithin(const QString& path, quint32 bytes)
{
    return !path.isEmpty() && QFile::encodeName(path).size() <= qint64(bytes);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCRename.h"

#include <QFile>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

// Some file systems in user space (mostly for NTFS disks) do not know RENAME_NOREPLACE, and old
// kernels and some containers do not know renameat2().
bool isUnknownToTheSystem(int error)
{
    return error == EINVAL || error == ENOSYS || error == EPERM;
}

bool isFree(const QByteArray& name)
{
    struct stat status { };
    return lstat(name.constData(), &status) != 0 && errno == ENOENT;
}

} // namespace

bool moveToFreeName(const QString& path, const QString& name)
{
    const QByteArray from = QFile::encodeName(path);
    const QByteArray to = QFile::encodeName(name);
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    return isUnknownToTheSystem(errno) && isFree(to)
        && std::rename(from.constData(), to.constData()) == 0;
}

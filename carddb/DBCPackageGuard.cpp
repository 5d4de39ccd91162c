// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageGuard.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

std::unique_ptr<DBCPackageGuard> DBCPackageGuard::hold(const QString& package, Use use)
{
    std::unique_ptr<DBCPackageGuard> guard(new DBCPackageGuard(
        open(QFile::encodeName(package).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
    const int lock = use == Use::Reading ? LOCK_SH : LOCK_EX;
    const bool isTaken = guard->_folder && flock(guard->_folder.get(), lock | LOCK_NB) != 0
        && errno == EWOULDBLOCK;
    return isTaken ? nullptr : std::move(guard);
}

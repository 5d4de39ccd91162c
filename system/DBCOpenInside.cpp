// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCOpenInside.h"

#include "system/DBCPathNames.h"

#include <QFile>
#include <QFileInfo>

#include <optional>

#include <cerrno>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>

namespace {

// The C library has no function for this system call yet.
int openBeneath(int folder, const QByteArray& path, int flags)
{
    struct open_how how { };
    how.flags = static_cast<__u64>(flags);
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_MAGICLINKS;
    const long opened = syscall(SYS_openat2, folder, path.constData(), &how, sizeof how);
    // If the kernel lacks this system call, at least a link in the last component is not followed.
    if (opened < 0 && (errno == ENOSYS || errno == EPERM))
        return openat(folder, path.constData(), flags | O_NOFOLLOW);
    return static_cast<int>(opened);
}

} // namespace

DBCDescriptor openInside(const QString& folder, const QString& path, int flags)
{
    std::optional<QString> rest = pathBelow(folder, path);
    if (!rest)
        rest = pathBelow(QFileInfo(folder).canonicalFilePath(), path);
    if (!rest) {
        errno = EXDEV;
        return DBCDescriptor(-1);
    }
    const DBCDescriptor base(
        open(QFile::encodeName(folder).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!base)
        return DBCDescriptor(-1);
    return DBCDescriptor(openBeneath(base.get(), QFile::encodeName(*rest), flags | O_CLOEXEC));
}

bool isLeadOutError(int error)
{
    return error == EXDEV || error == ELOOP;
}

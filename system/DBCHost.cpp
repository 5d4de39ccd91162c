// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCHost.h"

#include "system/DBCDescriptor.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <cerrno>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

std::optional<quint64> freeBytes(const QString& path)
{
    std::error_code error;
    const auto space = std::filesystem::space(QFile::encodeName(path).toStdString(), error);
    // Blocks reserved for root do not count, even when root runs the program.
    return error ? std::nullopt : std::optional<quint64>(space.available);
}

bool isRefusal(int error)
{
    return error == EACCES || error == EPERM;
}

// For file systems that do not report the attribute through statx(). A file that cannot be opened
// counts as not immutable; the check of the access rights reports such a file.
std::optional<bool> isImmutableByFlags(const QByteArray& path)
{
    const DBCDescriptor file(open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file)
        return isRefusal(errno) || errno == ENXIO ? std::optional(false) : std::nullopt;
    int flags = 0;
    if (ioctl(file.get(), FS_IOC_GETFLAGS, &flags) == 0)
        return (flags & FS_IMMUTABLE_FL) != 0;
    const bool hasNoFlags = errno == ENOTTY || errno == EOPNOTSUPP || errno == EINVAL
        || errno == ENOSYS || isRefusal(errno);
    return hasNoFlags ? std::optional(false) : std::nullopt;
}

std::optional<bool> isImmutable(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    // statx() comes first, because it needs no right to read the file and cannot block on a pipe.
    struct statx attributes = {};
    if (statx(AT_FDCWD, name.constData(), 0, STATX_TYPE, &attributes) != 0)
        return errno == ENOSYS || isRefusal(errno) ? isImmutableByFlags(name) : std::nullopt;
    if ((attributes.stx_attributes_mask & STATX_ATTR_IMMUTABLE) != 0)
        return (attributes.stx_attributes & STATX_ATTR_IMMUTABLE) != 0;
    return isImmutableByFlags(name);
}

bool hasAccess(const QString& path, int mode)
{
    return faccessat(AT_FDCWD, QFile::encodeName(path).constData(), mode, AT_EACCESS) == 0;
}

QString programFile(const std::filesystem::path& process)
{
    std::error_code error;
    const auto target = std::filesystem::read_symlink(process / "exe", error);
    QString name = QFile::decodeName(target.filename().c_str());
    // The kernel appends this to the path of a program file that was replaced while it runs.
    const QString replaced = u" (deleted)"_s;
    if (name.endsWith(replaced))
        name.chop(replaced.size());
    return name;
}

QString processName(const std::filesystem::path& process)
{
    QFile file(process / "comm");
    return file.open(QIODevice::ReadOnly) ? QFile::decodeName(file.readAll().trimmed()) : QString();
}

QStringList runningApplications()
{
    const auto isProcess = [](const std::string& name) {
        return std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
    };
    QStringList names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry("/proc", error), end; !error && entry != end;
         entry.increment(error)) {
        if (!isProcess(entry->path().filename()))
            continue;
        // Both names are needed: the file of a script is its interpreter, and a process can rename
        // itself.
        for (const QString& name : {programFile(entry->path()), processName(entry->path())}) {
            if (!name.isEmpty() && !names.contains(name))
                names << name;
        }
    }
    return names;
}

QString programFolder()
{
    // QCoreApplication cannot tell, because this is called before one is created.
    return QFileInfo(QFile::symLinkTarget(u"/proc/self/exe"_s)).path();
}

} // namespace

DBCHost DBCHost::real()
{
    DBCHost host;
    host.freeBytes = ::freeBytes;
    host.isImmutable = ::isImmutable;
    host.isReadable = [](const QString& path) { return hasAccess(path, R_OK); };
    host.isWritable = [](const QString& path) { return hasAccess(path, W_OK); };
    host.systemVersion = [] { return std::optional<qint32>(); };
    host.runningApplications = ::runningApplications;
    host.applicationsFolder = u"/Applications"_s;
    host.programFolder = ::programFolder();
    host.mountTable = u"/proc/self/mountinfo"_s;
    host.diskUsageProgram = u"/usr/bin/du"_s;
    host.fileOpener = u"xdg-open"_s;
    return host;
}

DBCHost& DBCHost::current()
{
    static DBCHost host = real();
    return host;
}

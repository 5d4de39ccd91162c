// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCMountTable.h"

#include <QFile>
#include <QList>

#include <algorithm>
#include <array>

#include <linux/magic.h>
#include <sys/vfs.h>

using namespace Qt::StringLiterals;

namespace {

// Types whose volumes are on another machine, or are mounted only on first access.
constexpr std::array<QStringView, 26> networkTypes {
    u"9p",
    u"afs",
    u"autofs",
    u"beegfs",
    u"ceph",
    u"cifs",
    u"coda",
    u"davfs",
    u"fuse.ceph-fuse",
    u"fuse.curlftpfs",
    u"fuse.davfs2",
    u"fuse.gcsfuse",
    u"fuse.glusterfs",
    u"fuse.gvfsd-fuse",
    u"fuse.rclone",
    u"fuse.s3fs",
    u"fuse.smbnetfs",
    u"fuse.sshfs",
    u"glusterfs",
    u"lustre",
    u"ncpfs",
    u"nfs",
    u"nfs4",
    u"orangefs",
    u"smb3",
    u"smbfs",
};

// The same types by their numbers in linux/magic.h. All user-space file systems share one number,
// so each of them counts as one that may be on another machine.
constexpr std::array<unsigned, 10> networkNumbers {AFS_SUPER_MAGIC, AUTOFS_SUPER_MAGIC,
    CEPH_SUPER_MAGIC, CIFS_SUPER_MAGIC, CODA_SUPER_MAGIC, FUSE_SUPER_MAGIC, NFS_SUPER_MAGIC,
    SMB2_SUPER_MAGIC, SMB_SUPER_MAGIC, V9FS_MAGIC};

bool isOctal(char c)
{
    return c >= '0' && c <= '7';
}

// The table writes blanks, line ends and backslashes as a backslash and three octal digits.
QString unescaped(const QByteArray& field)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < field.size(); ++i) {
        const bool isEscape = field[i] == '\\' && i + 3 < field.size() && isOctal(field[i + 1])
            && isOctal(field[i + 2]) && isOctal(field[i + 3]);
        bytes += isEscape ? char(field.mid(i + 1, 3).toUInt(nullptr, 8)) : field[i];
        i += isEscape ? 3 : 0;
    }
    return QFile::decodeName(bytes);
}

// The fields of a line are: ID, parent, device number, root, mount point, options, optional fields,
// "-", type, source, ...
std::optional<DBCMountedVolume> volumeFrom(const QByteArray& line)
{
    constexpr qsizetype mountPointField = 4;
    constexpr qsizetype firstOptionalField = 6;
    const QList<QByteArray> fields = line.split(' ');
    const qsizetype separator = fields.indexOf("-", firstOptionalField);
    if (separator < 0 || separator + 2 >= fields.size())
        return std::nullopt;
    return DBCMountedVolume {unescaped(fields[mountPointField]), unescaped(fields[separator + 1]),
        unescaped(fields[separator + 2])};
}

bool holds(const QString& mountPoint, const QString& path)
{
    return path == mountPoint
        || path.startsWith(mountPoint.endsWith(u'/') ? mountPoint : mountPoint + u'/');
}

} // namespace

bool DBCMountedVolume::isNetwork() const
{
    if (std::find(networkTypes.begin(), networkTypes.end(), type) != networkTypes.end())
        return true;
    // There are dozens of user-space file systems, each with its own type. Those on another machine
    // have a device that begins with the machine's name: "user@host:folder", "https://host/folder",
    // "//host/share".
    const bool isUserSpace = type == u"fuse" || type.startsWith(u"fuse.");
    const qsizetype colon = device.indexOf(u':');
    const qsizetype slash = device.indexOf(u'/');
    const bool namesHost
        = device.startsWith(u"//"_s) || (colon >= 0 && (slash < 0 || colon < slash));
    return isUserSpace && namesHost;
}

DBCMountTable DBCMountTable::parse(const QByteArray& mountInfo)
{
    DBCMountTable table;
    for (const QByteArray& line : mountInfo.split('\n')) {
        if (std::optional<DBCMountedVolume> volume = volumeFrom(line))
            table._volumes.push_back(*std::move(volume));
    }
    return table;
}

std::optional<DBCMountTable> DBCMountTable::read(const QString& file)
{
    QFile table(file);
    if (!table.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray text = table.readAll();
    return table.error() == QFileDevice::NoError ? std::optional(parse(text)) : std::nullopt;
}

std::optional<DBCMountedVolume> DBCMountTable::volumeOf(const QString& canonicalPath) const
{
    const DBCMountedVolume* found = nullptr;
    for (const DBCMountedVolume& volume : _volumes) {
        // If two volumes have the same mount point, the later one hides the earlier.
        if (holds(volume.mountPoint, canonicalPath)
            && (found == nullptr || volume.mountPoint.size() >= found->mountPoint.size()))
            found = &volume;
    }
    return found != nullptr ? std::optional(*found) : std::nullopt;
}

bool isOnNetworkFileSystem(const QString& path)
{
    struct statfs status { };
    if (statfs(QFile::encodeName(path).constData(), &status) != 0)
        return true;
    const auto number = static_cast<unsigned>(status.f_type);
    return std::find(networkNumbers.begin(), networkNumbers.end(), number) != networkNumbers.end();
}

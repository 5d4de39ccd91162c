// SPDX-License-Identifier: GPL-3.0-or-later
// The mounted volumes as the kernel lists them in "/proc/self/mountinfo".
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

struct DBCMountedVolume {
    QString mountPoint;
    QString type; // "ext4", "nfs4", "fuse.sshfs", ...
    QString device; // as the table names it: "/dev/sda1", "server:/export", "tmpfs", ...

    // True for network shares and automount points. A local volume without a device node (overlay,
    // tmpfs, a pool's file system) is none: it counts as one that is mounted from under /dev.
    bool isNetwork() const;
};

class DBCMountTable {
public:
    // Lines that do not have the table's form are passed over.
    static DBCMountTable parse(const QByteArray& mountInfo);
    // None when the file cannot be read.
    static std::optional<DBCMountTable> read(const QString& file);

    // The volume that a canonical path lies on; none when the table does not cover it.
    std::optional<DBCMountedVolume> volumeOf(const QString& canonicalPath) const;

private:
    std::vector<DBCMountedVolume> _volumes; // in the order in which they were mounted
};

// Whether the file system that holds an existing path reaches another machine, by the kernel's own
// number for its type; true, too, when that cannot be asked. For paths that no line of the table
// covers: below a changed root ("chroot") the root itself is no mount point and stands in none.
bool isOnNetworkFileSystem(const QString& path);

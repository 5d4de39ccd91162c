// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the kernel's list of mounted volumes, "/proc/self/mountinfo", to tell local paths from
// network paths.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

struct DBCMountedVolume {
    QString mountPoint;
    QString type; // "ext4", "nfs4", "fuse.sshfs", ...
    QString device; // as in the table: "/dev/sda1", "server:/export", "tmpfs", ...

    // True for network shares and automount points. Local volumes without a device node, such as
    // overlay and tmpfs, count as local disks.
    bool isNetwork() const;
};

class DBCMountTable {
public:
    // Ignores lines that do not have the table's form.
    static DBCMountTable parse(const QByteArray& mountInfo);
    // Returns std::nullopt if the file cannot be read.
    static std::optional<DBCMountTable> read(const QString& file);

    // Returns the volume that holds a canonical path, or std::nullopt if no mount point is above
    // the path.
    std::optional<DBCMountedVolume> volumeOf(const QString& canonicalPath) const;

private:
    std::vector<DBCMountedVolume> _volumes; // in the order in which they were mounted
};

// Whether the file system that holds an existing path may be on another machine, judged by the
// kernel's number for its type. Returns true if the number cannot be read. The function is meant
// for paths that the table does not cover: after chroot, the root folder need not be a mount point.
bool isOnNetworkFileSystem(const QString& path);

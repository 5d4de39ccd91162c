// SPDX-License-Identifier: GPL-3.0-or-later
// Lists and describes the backups that lie beside a package, without changing anything in them.
#pragma once

#include "operation/base/DBCProblem.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

struct DBCBackup {
    QString path; // absolute if the path of the package was absolute
    // When the backup was made. This is the folder's birth time, because a copy has the
    // modification time of its source. Where the file system records no birth time, it is the time
    // at which the folder's inode last changed, which is the birth time or later.
    QDateTime madeAt;
    std::optional<quint64> bytes; // size on the disk; std::nullopt when it could not be measured
    // Cards that are not deleted; std::nullopt when the store is damaged or unreadable.
    std::optional<qint64> cardCount;
    QString damage; // the localized reason when cardCount has no value, else empty

    QString name() const;
    QString dateText() const; // "2024-05-31 14:05", local time, the same in every language
    bool isDamaged() const { return !cardCount; }
};

struct DBCBackupList {
    std::vector<DBCBackup> backups; // the newest first
    std::optional<DBCProblem> couldNotLook = {}; // set when the folder could not be read
};

namespace DBCPackageBackups {

// Returns all backups of the package, which itself need not exist. It checks each store for damage,
// so it reads every byte of the stores. Any thread may call it.
DBCBackupList list(const QString& package);

// Returns the path of the backup with this folder name, or std::nullopt when the name is no backup
// name of this package or when no folder has it. A link or a file of that name is no backup.
std::optional<QString> pathOf(const QString& package, const QString& name);

// Returns what list() gives for the backup at this path.
DBCBackup describe(const QString& path);

} // namespace DBCPackageBackups

// SPDX-License-Identifier: GPL-3.0-or-later
// Lists and describes the backups that lie beside a package, without changing anything in them.
#pragma once

#include "operation/base/DBCProblem.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

struct DBCBackup {
    QString path; // absolute if the package's path was
    // When the backup was made: the folder's birth time, because a copy keeps the modification time
    // of its source. Where the file system records no birth time, it is the time at which the
    // folder's inode last changed, which is never earlier.
    QDateTime madeAt;
    std::optional<quint64> bytes; // on the disk; none when they could not be measured
    std::optional<qint64> cardCount; // live cards; none when the store is damaged or unreadable
    QString damage; // the localized reason when cardCount is none, else empty

    QString name() const;
    QString dateText() const; // "2024-05-31 14:05", local time, the same in every language
    bool isDamaged() const { return !cardCount; }
};

struct DBCBackupList {
    std::vector<DBCBackup> backups; // the newest first
    std::optional<DBCProblem> couldNotLook = {}; // set when the folder could not be read
};

namespace DBCPackageBackups {

// All backups of the package, which itself need not exist. Checks each store for damage, so this
// reads every byte of them; any thread may call it.
DBCBackupList list(const QString& package);

// The path of the backup with this folder name; none when the name is no backup name of this
// package, or when no folder has it. A link or a file of that name is no backup.
std::optional<QString> pathOf(const QString& package, const QString& name);

// The entry of list() for one backup.
DBCBackup describe(const QString& path);

} // namespace DBCPackageBackups

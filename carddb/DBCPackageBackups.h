// SPDX-License-Identifier: GPL-3.0-or-later
// The backups that stand beside a package. Looking at them changes nothing in them.
#pragma once

#include "operation/base/DBCProblem.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

struct DBCBackup {
    QString path;
    // When the backup was made. Copies keep the time of change of what they are copies of, so this
    // is the time at which the folder itself came to be; where the file system does not keep that,
    // the time at which its name, rights or entries last changed, which is never earlier.
    QDateTime madeAt;
    std::optional<quint64> bytes; // on the disk; none when they could not be measured
    std::optional<qint64> cardCount; // live ones; none: the store cannot be relied upon
    QString damage; // why not

    QString name() const;
    QString dateText() const; // to the minute, the same in every language
    bool isDamaged() const { return !cardCount; }
};

struct DBCBackupList {
    std::vector<DBCBackup> backups; // the newest first
    std::optional<DBCProblem> couldNotLook = {};
};

namespace DBCPackageBackups {

// The package itself need not exist. Reads each store to its end.
DBCBackupList list(const QString& package);

// The folder of the backup with this name; none when there is no such backup. Links and files that
// bear such a name are none.
std::optional<QString> pathOf(const QString& package, const QString& name);

// What list() says of one backup.
DBCBackup describe(const QString& path);

} // namespace DBCPackageBackups

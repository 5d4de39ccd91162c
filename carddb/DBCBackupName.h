// SPDX-License-Identifier: GPL-3.0-or-later
// What the backups of a package are called: "Cards_bak.vmdb" beside "Cards.vmdb", then
// "Cards_bak1.vmdb", "Cards_bak2.vmdb" and so on.
#pragma once

#include <QString>

#include <optional>

namespace DBCBackupName {

// The first such path at which nothing stands; none when all are taken.
std::optional<QString> firstFree(const QString& package);

// Whether name is exactly one of these names, without any folder.
bool isOf(const QString& package, const QString& name);

} // namespace DBCBackupName

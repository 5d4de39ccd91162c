// SPDX-License-Identifier: GPL-3.0-or-later
// The names of a package's backups: "Cards_bak.vmdb" beside "Cards.vmdb", then "Cards_bak1.vmdb" up
// to "Cards_bak9999.vmdb".
#pragma once

#include <QString>

#include <optional>

namespace DBCBackupName {

// Returns the full path of the first of these names that is free, or std::nullopt when all 10,000
// names are taken.
std::optional<QString> firstFree(const QString& package);

// Whether name is exactly one of these names. A name with a folder in front is not.
bool isOf(const QString& package, const QString& name);

} // namespace DBCBackupName

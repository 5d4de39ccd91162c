// SPDX-License-Identifier: GPL-3.0-or-later
// The "Version.txt" of an interchange folder: its first line says which product wrote the folder,
// and in which version of the format.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QHash>
#include <QString>

#include <optional>

// Holds one entry: versionInfoKey with the first line of the file.
using DBCVersionInfo = QHash<QString, QString>;

inline constexpr const char* versionInfoKey = "Product name and version in the Version.txt";

// Returns none when the file cannot be read or is not valid text.
std::optional<DBCVersionInfo> readVersionInfo(const QString& path);

// Returns Success, VersionFileRefusedProduct or VersionFileMismatch; a missing value is a mismatch.
// Exports carry the product code "TELKA", and it is refused on purpose: an exported folder must not
// be imported again.
DBCResultCode checkVersionInfo(const std::optional<DBCVersionInfo>& versionInfo);

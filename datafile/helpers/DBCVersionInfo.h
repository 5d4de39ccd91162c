// SPDX-License-Identifier: GPL-3.0-or-later
// The "Version.txt" of an interchange folder: its first line says which product wrote the folder,
// and in which version of the format.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QHash>
#include <QString>

#include <optional>

// Holds one entry, whose key is versionInfoKey and whose value is the first line of the file.
using DBCVersionInfo = QHash<QString, QString>;

inline constexpr const char* versionInfoKey = "Product name and version in the Version.txt";

// Returns std::nullopt when the file cannot be read or is not valid text.
std::optional<DBCVersionInfo> readVersionInfo(const QString& path);

// Returns Success, VersionFileRefusedProduct or VersionFileMismatch. A missing value is a mismatch.
// The function refuses the product code "TELKA", which every export writes, because an exported
// folder must not be imported again.
DBCResultCode checkVersionInfo(const std::optional<DBCVersionInfo>& versionInfo);

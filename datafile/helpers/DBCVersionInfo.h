// SPDX-License-Identifier: GPL-3.0-or-later
// The "Version.txt" of an interchange folder: its first line says which product wrote the folder,
// and in which version of the format.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QHash>
#include <QString>

#include <optional>

// One entry: the first line under versionInfoKey.
using DBCVersionInfo = QHash<QString, QString>;

inline constexpr const char* versionInfoKey = "Product name and version in the Version.txt";

// None when the file cannot be read or is no text.
std::optional<DBCVersionInfo> readVersionInfo(const QString& path);

// Success, VersionFileRefusedProduct or VersionFileMismatch. A product code of "TELKA" is refused
// although exports carry it: an exported folder is not meant to come back.
DBCResultCode checkVersionInfo(const std::optional<DBCVersionInfo>& versionInfo);

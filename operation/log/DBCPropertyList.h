// SPDX-License-Identifier: GPL-3.0-or-later
// Reads property lists in XML or binary form: the settings, and the main card application's version
// file.
#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

namespace DBCPropertyList {

// The size in bytes of the longest file that is read.
inline constexpr qint64 sizeLimit = 0x40000;

// Returns the entries of the dictionary in the file: texts as QString, integers as qlonglong, reals
// as double and booleans as bool. Entries of other types are left out. Returns std::nullopt if the
// path is no regular file, if the file is longer than sizeLimit, or if the file contains no
// dictionary.
std::optional<QVariantMap> read(const QString& path);

} // namespace DBCPropertyList

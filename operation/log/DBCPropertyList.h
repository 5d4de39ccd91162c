// SPDX-License-Identifier: GPL-3.0-or-later
// Reads property lists, XML or binary: settings and the version file of the main card application.
#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

namespace DBCPropertyList {

// Longest file that is read, in bytes.
inline constexpr qint64 sizeLimit = 0x40000;

// The texts (QString), integers (qlonglong), reals (double) and truth values (bool) of the
// dictionary that the file holds; entries of other kinds are left out. None when there is no such
// regular file, it is longer than sizeLimit, or it holds no dictionary.
std::optional<QVariantMap> read(const QString& path);

} // namespace DBCPropertyList

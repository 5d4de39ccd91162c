// SPDX-License-Identifier: GPL-3.0-or-later
// Functions on the text of a path, which do not look at the disk; system/DBCPathChecks.h has those
// that do.
// Where a function takes two paths, the folder comes first.
#pragma once

#include <QString>

#include <filesystem>
#include <optional>

// The rest of path behind the folder's own path and a slash; none when path is not below folder.
// Both are compared as they are written, so "..", doubled slashes and links count as text. The rest
// is empty for the folder's own path with a slash behind it.
std::optional<QString> pathBelow(const QString& folder, const QString& path);

// The path in the bytes of the file system, for the functions of the C++ and the SQLite library.
std::filesystem::path nativePath(const QString& path);

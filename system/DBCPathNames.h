// SPDX-License-Identifier: GPL-3.0-or-later
// Functions on the text of a path, which do not look at the disk; system/DBCPathChecks.h has those
// that do.
// Where a function takes two paths, the folder comes first.
#pragma once

#include <QString>

#include <filesystem>
#include <optional>

// Returns the part of path that follows the folder's own path and a slash, or std::nullopt if path
// is not below folder. Both paths are compared as text, so "..", doubled slashes and links are not
// resolved. The result is empty if path is the folder's own path followed by a slash.
std::optional<QString> pathBelow(const QString& folder, const QString& path);

// Returns the path in the bytes of the file system, for the functions of the C++ and the SQLite
// library.
std::filesystem::path nativePath(const QString& path);

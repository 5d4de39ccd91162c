// SPDX-License-Identifier: GPL-3.0-or-later
// Questions about a path that are answered by a look at the disk. None of them changes or reports
// anything. Where a function takes two paths, the folder comes first.
#pragma once

#include <QString>

// True when the file system that holds the existing path has at least this many bytes free, and at
// least one. False when the free space cannot be read.
bool hasFreeBytes(const QString& path, quint64 bytes);

// True when something exists at the path, even a link that leads nowhere, so that nothing can be
// created there. Also true when a failing disk gives no answer, because a folder that may be there
// must not be treated as absent.
bool isTaken(const QString& path);

bool isWritableFolder(const QString& path);

// True for a folder, false for a link to one.
bool isFolderNotLink(const QString& path);

// True when path is the folder or lies in it at any depth, once the links of both are resolved;
// false when one of them does not exist.
bool isSameOrInside(const QString& folder, const QString& path);

// True when another process holds an flock() on the file; false for a missing file.
bool isLockedByAnother(const QString& path);

// True when the path's UTF-8 form has at most this many bytes; false for an empty path.
bool isPathWithin(const QString& path, quint32 bytes);

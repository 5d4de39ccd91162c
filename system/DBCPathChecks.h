// SPDX-License-Identifier: GPL-3.0-or-later
// Functions that check what is on the disk at a path. None of them changes, shows or logs anything.
// Where a function takes two paths, the folder comes first.
#pragma once

#include <QString>

// Returns true if the file system that holds the existing path has at least this many bytes free,
// and at least one. Returns false if the free space cannot be read.
bool hasFreeBytes(const QString& path, quint64 bytes);

// Returns true if something exists at the path, even a link that leads nowhere, so that nothing can
// be created there. Also returns true if a failing disk gives no answer, because a folder that may
// be there must not be treated as absent.
bool isTaken(const QString& path);

bool isWritableFolder(const QString& path);

// Returns true for a folder, and false for a link to a folder.
bool isFolderNotLink(const QString& path);

// Returns true if path is the folder or lies in it at any depth, once the links of both are
// resolved; returns false if one of them does not exist.
bool isSameOrInside(const QString& folder, const QString& path);

// Returns true if another process holds an flock() on the file; returns false for a missing file.
bool isLockedByAnother(const QString& path);

// Returns true if the path's UTF-8 form has at most this many bytes; returns false for an empty
// path.
bool isPathWithin(const QString& path, quint32 bytes);

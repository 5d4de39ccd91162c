// SPDX-License-Identifier: GPL-3.0-or-later
// Questions about a path and the disk below it. None of them changes or reports anything.
#pragma once

#include <QString>

// True when the file system that holds the existing path has at least this many bytes free, and any
// at all.
bool hasFreeBytes(const QString& path, quint64 bytes);

// Something stands at the path, be it a link that leads nowhere: nothing can be made there. True as
// well when a failing disk cannot tell, because what may be there must not be taken for absent.
bool isTaken(const QString& path);

bool isWritableFolder(const QString& path);

// True when another process holds an flock() on the file; false for a missing file.
bool isLockedByAnother(const QString& path);

// The path's UTF-8 form has at most this many bytes; false for an empty path.
bool isPathWithin(const QString& path, quint32 bytes);

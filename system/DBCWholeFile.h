// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a whole file into memory.
#pragma once

#include "system/DBCDescriptor.h"

#include <QByteArray>
#include <QString>

// A file that is no regular file, is too large for memory, or ended before its size.
inline constexpr qint32 DBCNotReadWhole = -4960;

// Opens the file for reading; insideFolder: where links must not lead out of, however a file came
// to be a link in the meantime; empty: anywhere. On failure the descriptor is none and errno says
// why.
DBCDescriptor openForReading(const QString& path, const QString& insideFolder = {});

// Reads all that the open file holds. 0, DBCNotReadWhole, or minus the errno of the failing step;
// out is empty on failure.
qint32 readWholeFile(const DBCDescriptor& file, QByteArray* out);

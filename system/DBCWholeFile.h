// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a whole file into memory. Results are 0 or a negative number, so that
// readJpgFile() can return them unchanged.
#pragma once

#include "system/DBCDescriptor.h"

#include <QByteArray>
#include <QString>

// The file is no regular file, is too large for memory, or ended before its size.
inline constexpr qint32 DBCNotReadWhole = -4960;

// Opens the file for reading, without waiting for the writer of a pipe. On failure the descriptor
// is invalid and errno tells the reason.
DBCDescriptor openForReading(const QString& path);

// Reads all bytes of the open file from its current position, which must be its start. Returns 0,
// DBCNotReadWhole, or minus the errno of the failing step; out is empty on failure.
qint32 readWholeFile(const DBCDescriptor& file, QByteArray* out);

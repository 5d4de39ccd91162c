// SPDX-License-Identifier: GPL-3.0-or-later
// Waits until written data is on the disk, so that it survives a power cut. Flushing a whole file
// system once takes a tenth of the time of flushing a few thousand files one by one.
#pragma once

#include <QString>

namespace DBCDiskFlush {

// Flushes everything written so far to the file system that holds an existing path. Returns false
// if the operating system reports that a write to that file system has been lost since the last
// such call.
[[nodiscard]] bool fileSystemOf(const QString& path);

// Flushes the contents of one open file, and the attributes needed to read them (fdatasync).
[[nodiscard]] bool file(int descriptor);

// Flushes the entries of one folder: what was created, renamed or removed in it.
[[nodiscard]] bool folder(const QString& path);

} // namespace DBCDiskFlush

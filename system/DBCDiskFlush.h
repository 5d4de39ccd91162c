// SPDX-License-Identifier: GPL-3.0-or-later
// Waits until what was written is on the disk, so that it outlives a power cut. One wait for a
// whole file system costs a tenth of one for each of a few thousand files.
#pragma once

#include <QString>

namespace DBCDiskFlush {

// Everything written so far to the file system that holds an existing path. False when the system
// could not keep something, on that file system, since it was last asked.
[[nodiscard]] bool fileSystemOf(const QString& path);

// What was written to one open file, as far as it is needed to read it again.
[[nodiscard]] bool file(int descriptor);

// The names in one folder: what was made, renamed or removed there.
[[nodiscard]] bool folder(const QString& path);

} // namespace DBCDiskFlush

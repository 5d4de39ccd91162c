// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class DBCError;

// Disk usage of a file or folder in bytes, as "/usr/bin/du -k -s" counts it. 0 without error for an
// empty path and one at which nothing stands; 0 with SizeMeasureFailure or InternalException in
// outError (may be null) when du fails or answers anything but a number.
quint64 getSizeWithPath(const QString& path, DBCError* outError);

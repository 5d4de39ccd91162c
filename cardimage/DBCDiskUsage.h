// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class DBCError;

// Disk usage of a file or folder in bytes, as "/usr/bin/du -k -s" counts it. 0 without error for an
// empty path and one at which nothing stands; 0 with SizeMeasureFailure or InternalException in
// outError (may be null) when du fails or answers anything but a number. 0 with CancelledByUser
// when du took long and the thread's DBCStopQuestion was answered with a stop; du is killed then.
quint64 getSizeWithPath(const QString& path, DBCError* outError);

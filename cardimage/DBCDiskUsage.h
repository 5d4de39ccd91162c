// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the disk usage of files and folders by running the system's du program.
#pragma once

#include <QString>

class DBCError;

// Returns the disk usage of a file or folder in bytes, as "/usr/bin/du -k -s" counts it. Returns 0
// without an error when the path is empty or does not exist. Returns 0 and sets outError, which may
// be null, to SizeMeasureFailure when du fails or does not print a number, and to InternalException
// when du cannot be started. Blocks until du has ended. If du takes long, the thread's
// DBCStopQuestion is asked; when it answers with a stop, du is killed and outError is
// CancelledByUser.
quint64 getSizeWithPath(const QString& path, DBCError* outError);

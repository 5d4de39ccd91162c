// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the disk usage of files and folders by running the system's du program.
#pragma once

#include <QString>

class DBCError;

// Returns the disk usage of a file or folder in bytes, as "/usr/bin/du -k -s" counts it. The
// function blocks until du has ended. Returns 0 without an error when the path is empty or does not
// exist. After a failure the function returns 0 and sets outError, which may be null: to
// SizeMeasureFailure when du fails or does not print a number, to InternalException when du cannot
// be started, and to CancelledByUser after a stop. If du takes longer than half a second, the
// function asks the DBCStopQuestion of the calling thread whether to stop; if the answer is yes,
// the function kills du.
quint64 getSizeWithPath(const QString& path, DBCError* outError);

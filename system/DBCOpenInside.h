// SPDX-License-Identifier: GPL-3.0-or-later
// Opens a file that a data file or a store names, but only if it lies inside its folder at the
// moment of opening. Checking the path earlier cannot guarantee that, because the file may be
// exchanged in between.
#pragma once

#include "system/DBCDescriptor.h"

#include <QString>

// Opens the file or folder at path, whose text must begin with the folder's path. Links are
// followed as long as they stay inside the folder; if one leads out, nothing is opened. flags are
// those of open(); O_CLOEXEC is added. On failure the descriptor is invalid and errno tells the
// reason.
DBCDescriptor openInside(const QString& folder, const QString& path, int flags);

// Whether openInside() failed because the path leads out of the folder. error is the value of errno
// after that call.
bool isLeadOutError(int error);

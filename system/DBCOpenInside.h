// SPDX-License-Identifier: GPL-3.0-or-later
// Opens a file that a data file or a store names, but only if it lies inside its folder at the
// moment of opening. An earlier look at the path cannot guarantee that.
#pragma once

#include "system/DBCDescriptor.h"

#include <QString>

// Opens the file or folder at path, whose text must begin with the folder's path. Links are
// followed as long as they stay inside the folder; if one leads out, nothing is opened. flags: as
// for open(); O_CLOEXEC is added. On failure the descriptor is none and errno tells the reason.
DBCDescriptor openInside(const QString& folder, const QString& path, int flags);

// Whether openInside() failed because the path leads out of the folder. error: errno after the
// call.
bool isLeadOutError(int error);

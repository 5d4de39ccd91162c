// SPDX-License-Identifier: GPL-3.0-or-later
// Opens what a name from a data file or a store leads to, and nothing outside its folder.
#pragma once

#include "system/DBCDescriptor.h"

#include <QString>

// The file or folder at path, which lies textually inside folder. Links are followed as long as
// they stay inside; where one leads out, at this very moment and whatever was found there before,
// nothing is opened. flags: as for open(); O_CLOEXEC is added. On failure errno tells why.
DBCDescriptor openInside(const QString& folder, const QString& path, int flags);

// Whether openInside() failed because something leads out. error: what errno was then.
bool isLeadOutError(int error);

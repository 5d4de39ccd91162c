// SPDX-License-Identifier: GPL-3.0-or-later
// Renames without replacing anything.
#pragma once

#include <QString>

// Gives the file or folder at path a new name, which must be free. Returns false if something
// already has that name, even if it appeared just before the call, or if the system refuses. If the
// system cannot rename in this way, the function first checks that the name is free; something that
// appears just after this check may be replaced.
bool moveToFreeName(const QString& path, const QString& name);

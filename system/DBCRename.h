// SPDX-License-Identifier: GPL-3.0-or-later
// Renames without replacing anything.
#pragma once

#include <QString>

// Gives the file or folder at path a new name, which must be free. False when something is there,
// even if it has appeared only now, or when the system refuses. Where the system knows no such
// rename, the name is checked first, which leaves a gap of a few instructions.
bool moveToFreeName(const QString& path, const QString& name);

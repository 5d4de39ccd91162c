// SPDX-License-Identifier: GPL-3.0-or-later
// Paths as users type and choose them, and the paths of the last operations.
#pragma once

#include "operation/base/DBCOperation.h"

#include <QString>

namespace DBCPaths {

// Returns a typed path in the form in which the operation gets it: a leading "~" is replaced by the
// home folder, and surrounding blanks, which often come with a pasted path, are removed unless a
// file or folder of exactly that name exists.
QString usable(const QString& typedPath);

// Whether the path is a folder whose name is that of a card database.
bool isPackage(const QString& path);

// The data path of the last operation of this type that was started; empty: none.
QString lastDataPath(OperationType type);
void rememberDataPath(OperationType type, const QString& path);

} // namespace DBCPaths

// SPDX-License-Identifier: GPL-3.0-or-later
// Paths as users type and choose them, and the paths of the last operations.
#pragma once

#include "operation/base/DBCOperation.h"

#include <QString>

namespace DBCPaths {

// Returns a typed path in the form that the operation needs. A leading "~" becomes the home folder.
// Blanks around the path, which often come with a pasted path, are removed if a file or folder
// exists only at the path without them.
QString usable(const QString& typedPath);

// Returns whether the path names a folder with the file extension of a card database.
bool isPackage(const QString& path);

// Returns the data path of the last operation of this type. Returns an empty text if the user has
// never started such an operation.
QString lastDataPath(OperationType type);
void rememberDataPath(OperationType type, const QString& path);

} // namespace DBCPaths

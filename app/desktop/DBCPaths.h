// SPDX-License-Identifier: GPL-3.0-or-later
// Paths as people type and choose them.
#pragma once

#include "operation/base/DBCOperation.h"

#include <QString>

namespace DBCPaths {

// A typed path as the operation gets it: "~" in front stands for the home folder, and blanks around
// it, which come along when a path is pasted, are dropped unless something bears the very name.
QString usable(const QString& typedPath);

// A folder that is a card database by its name.
bool isPackage(const QString& path);

// The data path of the last operation of a type that was started; empty: none.
QString lastDataPath(OperationType type);
void rememberDataPath(OperationType type, const QString& path);

} // namespace DBCPaths

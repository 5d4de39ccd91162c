// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a problem out of a localized text that begins by naming the file or folder it is about.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCProblem.h"

#include <QString>

// The text of key with path as its first argument and furtherArguments after it; the problem is
// about path.
DBCProblem problemAt(
    const QString& path, const char* key, const DBCMessageArguments& furtherArguments = {});

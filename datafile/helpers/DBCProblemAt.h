// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a problem out of a localized text that begins by naming the file or folder it is about.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCProblem.h"

#include <QString>

// Returns a problem about path. Its text is that of key, with path as the first argument and
// furtherArguments as the next ones.
DBCProblem problemAt(
    const QString& path, const char* key, const DBCMessageArguments& furtherArguments = {});

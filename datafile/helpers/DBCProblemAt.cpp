// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCProblemAt.h"

DBCProblem problemAt(
    const QString& path, const char* key, const DBCMessageArguments& furtherArguments)
{
    DBCMessageArguments arguments {path};
    arguments.insert(arguments.end(), furtherArguments.begin(), furtherArguments.end());
    return {getLocalString(key, arguments), path};
}

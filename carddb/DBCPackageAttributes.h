// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the attributes of a package and of its parts let the program use it.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

// GeneralFailure, or one of the Package* classifications. An empty path is none.
DBCResultCode checkPackageAttributes(const QString& package);

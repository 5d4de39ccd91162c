// SPDX-License-Identifier: GPL-3.0-or-later
// Classifies a package by the access rights and immutable flags of the folder and its parts.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

// One of the Package... codes, of which PackageUsable alone allows a conversion. GeneralFailure for
// an empty path, or when an immutable flag cannot be read. Links are followed.
DBCResultCode checkPackageAttributes(const QString& package);

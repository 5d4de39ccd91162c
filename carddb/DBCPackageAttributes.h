// SPDX-License-Identifier: GPL-3.0-or-later
// Classifies a package by the access rights and immutable flags of the folder and its parts.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

// Returns one of the Package... codes, of which only PackageUsable allows a conversion. Returns
// GeneralFailure for an empty path, or when an immutable flag cannot be read. Follows links.
DBCResultCode checkPackageAttributes(const QString& package);

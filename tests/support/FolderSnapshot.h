// SPDX-License-Identifier: GPL-3.0-or-later
// Returns one text for the folder itself and then one for each entry below it: the relative path,
// the kind and permissions, the time of the last change, and the bytes or the link target. Two
// folders with equal snapshots are equal in all of these.
#pragma once

#include <QStringList>

QStringList snapshotOf(const QString& folder);

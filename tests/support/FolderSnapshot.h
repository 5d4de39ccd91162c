// SPDX-License-Identifier: GPL-3.0-or-later
// Everything in a folder as a text an entry, the folder itself first: kind, permissions, time of
// change, then bytes or link target. Two folders are the same when their snapshots are.
#pragma once

#include <QStringList>

QStringList snapshotOf(const QString& folder);

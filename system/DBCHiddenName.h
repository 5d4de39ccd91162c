// SPDX-License-Identifier: GPL-3.0-or-later
// Hidden names beside a folder for what is not finished yet, or no more: nothing half done ever
// stands under a name that somebody opens. They follow from the folder's own name, so that the next
// start finds what a killed program left behind.
#pragma once

#include <QString>

namespace DBCHiddenName {

// A copy that is still being made; it moves to path when it is whole.
QString unfinishedCopyOf(const QString& path);
// What stood at path and is being removed.
QString discarded(const QString& path);
// The journal of an import into the package at path.
QString journalOf(const QString& path);

} // namespace DBCHiddenName

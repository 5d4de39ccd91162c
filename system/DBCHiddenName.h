// SPDX-License-Identifier: GPL-3.0-or-later
// Gives the hidden names that are used beside a folder: for unfinished copies, for folders that are
// being removed, and for the journal, the small file beside a package that records how far an
// import or a restore has come. So nothing incomplete ever has a name that a user or program opens.
#pragma once

#include <QString>

// Each name is derived from the folder's own name alone, so that the next start finds what a killed
// program left behind: "/cards/A.vmdb" gives "/cards/.A.vmdb.velmora-copy" and so on. A name that
// would be longer than the file system allows is replaced by its SHA-256. The functions do not look
// at the disk.
namespace DBCHiddenName {

// Ends in ".velmora-copy": a copy that is still being made and is renamed to path when it is
// complete.
QString unfinishedCopyOf(const QString& path);
// Ends in ".velmora-discarded": a folder that had the name path and is being removed.
QString discarded(const QString& path);
// Ends in ".velmora-import": the journal of an import into the package at path, or of a restore.
QString journalOf(const QString& path);

} // namespace DBCHiddenName

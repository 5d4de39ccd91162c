// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCAttachmentRules.h"

#include "datafile/helpers/DBCInterchangeNames.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

DBCAttachmentVerdict verdictOnKind(DBCEntryKind kind)
{
    return kind == DBCEntryKind::RegularFile || kind == DBCEntryKind::Unknown
        ? DBCAttachmentVerdict::Copy
        : DBCAttachmentVerdict::NotRegular;
}

} // namespace

DBCEntryKind kindOfEntry(int folder, const QByteArray& name)
{
    struct stat status { };
    if (fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT ? DBCEntryKind::Gone : DBCEntryKind::Unknown;
    if (S_ISREG(status.st_mode))
        return DBCEntryKind::RegularFile;
    return S_ISDIR(status.st_mode) ? DBCEntryKind::Folder : DBCEntryKind::Other;
}

DBCAttachmentVerdict judgeAttachmentForImport(const QByteArray& name, DBCEntryKind kind)
{
    if (name == DBCInterchangeNames::folderSettingsFile || kind == DBCEntryKind::Folder)
        return DBCAttachmentVerdict::Ignore;
    if (name.startsWith('.') || name.contains('/') || name.contains(':'))
        return DBCAttachmentVerdict::BadName;
    return kind == DBCEntryKind::Gone ? DBCAttachmentVerdict::Vanished : verdictOnKind(kind);
}

DBCAttachmentVerdict judgeAttachmentForExport(const QByteArray& name, DBCEntryKind kind)
{
    if (!DBCInterchangeNames::isAttachmentName(QFile::decodeName(name)))
        return DBCAttachmentVerdict::BadName;
    if (kind == DBCEntryKind::Gone || kind == DBCEntryKind::Folder)
        return DBCAttachmentVerdict::Ignore;
    return verdictOnKind(kind);
}

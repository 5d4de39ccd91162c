// SPDX-License-Identifier: GPL-3.0-or-later
// Decides which entries of an attachment folder are copied. An import, an export and the check of a
// folder all ask here, and each reports the verdict in its own way.
#pragma once

#include <QByteArray>
#include <QString>

// The kind of a folder's entry. A link is a kind of its own; it is not followed.
enum class DBCEntryKind : quint8 {
    RegularFile,
    Folder,
    Other, // a link, a pipe, a socket or a device
    Gone, // it does not exist, or no longer
    Unknown, // the system does not tell, because of missing rights or a failing disk
};

// folder: the descriptor of the open folder, or AT_FDCWD when name is a whole path.
DBCEntryKind kindOfEntry(int folder, const QByteArray& name);

enum class DBCAttachmentVerdict : quint8 {
    Copy, // includes Unknown entries: copying one fails and tells the reason
    Ignore, // left out, and nobody needs to know
    BadName, // left out because of its name
    Vanished, // left out because it no longer exists
    NotRegular, // left out because it is no regular file
};

// name: the entry's name in the bytes of the file system, which need not be valid text.
DBCAttachmentVerdict judgeAttachmentForImport(const QByteArray& name, DBCEntryKind kind);
DBCAttachmentVerdict judgeAttachmentForExport(const QByteArray& name, DBCEntryKind kind);

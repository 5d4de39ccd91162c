// SPDX-License-Identifier: GPL-3.0-or-later
// Decides which entries of an attachment folder are copied. An import, an export and the check of a
// folder all use these rules, and each reports the verdict in its own way.
#pragma once

#include <QByteArray>
#include <QString>

// The kind of an entry of a folder. A symbolic link is not followed and counts as Other.
enum class DBCEntryKind : quint8 {
    RegularFile,
    Folder,
    Other, // a link, a pipe, a socket or a device
    Gone, // the entry does not exist, or no longer exists
    Unknown, // the system gave an error: missing rights or a failing disk
};

// folder is the descriptor of the open folder, or AT_FDCWD when name is a whole path.
DBCEntryKind kindOfEntry(int folder, const QByteArray& name);

enum class DBCAttachmentVerdict : quint8 {
    Copy, // also for Unknown entries: the failing copy tells the reason
    Ignore, // left out without a message
    BadName, // left out because of its name
    Vanished, // left out because it no longer exists
    NotRegular, // left out because it is not a regular file
};

// name holds the bytes of the entry's name in the file system, which need not be valid text.
DBCAttachmentVerdict judgeAttachmentForImport(const QByteArray& name, DBCEntryKind kind);
DBCAttachmentVerdict judgeAttachmentForExport(const QByteArray& name, DBCEntryKind kind);

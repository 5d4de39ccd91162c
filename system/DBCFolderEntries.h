// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the entries of an open folder. Names are bytes, which need not be valid UTF-8.
#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

#include <sys/types.h>

struct DBCFolderEntry {
    ino_t inode;
    QByteArray name;
};

// All entries but "." and "..", in the order in which the file system returns them. None when the
// folder could not be read to its end. The descriptor and its position stay as they are.
std::optional<std::vector<DBCFolderEntry>> entriesOfFolder(int folder);

// The target of a symbolic link in an open folder; none when it cannot be read completely.
std::optional<QByteArray> targetOfLink(int folder, const QByteArray& name);

// SPDX-License-Identifier: GPL-3.0-or-later
// The names in an open folder, as the bytes they are.
#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

#include <sys/types.h>

struct DBCFolderEntry {
    ino_t inode;
    QByteArray name;
};

// Without "." and "..", in the order in which they lie on the disk; none when the folder could not
// be read to its end. The descriptor stays open.
std::optional<std::vector<DBCFolderEntry>> entriesOfFolder(int folder);

// What a symbolic link in an open folder holds; none when that cannot be read whole.
std::optional<QByteArray> targetOfLink(int folder, const QByteArray& name);

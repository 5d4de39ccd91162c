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

// Returns all entries but "." and "..", in the order in which the file system returns them. Returns
// std::nullopt if the folder could not be read to its end. The descriptor and its position stay as
// they are.
std::optional<std::vector<DBCFolderEntry>> entriesOfFolder(int folder);

// Returns the target of a symbolic link in an open folder, or std::nullopt if the target cannot be
// read completely.
std::optional<QByteArray> targetOfLink(int folder, const QByteArray& name);

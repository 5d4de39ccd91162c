// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCFolderEntries.h"

#include <algorithm>
#include <memory>

#include <cerrno>
#include <climits>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isDotName(const char* name)
{
    return qstrcmp(name, ".") == 0 || qstrcmp(name, "..") == 0;
}

// A folder that was removed while it is open can still be read and then looks empty.
bool isRemoved(int folder)
{
    struct stat status { };
    return fstat(folder, &status) != 0 || status.st_nlink == 0;
}

} // namespace

std::optional<std::vector<DBCFolderEntry>> entriesOfFolder(int folder)
{
    // Reading moves the position, so use a second descriptor with a position of its own.
    const int own = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(own < 0 ? nullptr : fdopendir(own), closedir);
    if (!listing)
        return std::nullopt;
    std::vector<DBCFolderEntry> entries;
    errno = 0; // readdir() returns null at the end and on an error; only errno tells which
    while (const dirent* entry = readdir(listing.get())) {
        if (!isDotName(entry->d_name))
            entries.push_back({entry->d_ino, entry->d_name});
        errno = 0;
    }
    if (errno != 0 || isRemoved(folder))
        return std::nullopt;
    std::sort(entries.begin(), entries.end(),
        [](const DBCFolderEntry& a, const DBCFolderEntry& b) { return a.inode < b.inode; });
    return entries;
}

std::optional<QByteArray> targetOfLink(int folder, const QByteArray& name)
{
    // No system call accepts a longer target. One that fills the buffer completely was cut off.
    QByteArray target(PATH_MAX + 1, Qt::Uninitialized);
    const ssize_t size = readlinkat(
        folder, name.constData(), target.data(), static_cast<std::size_t>(target.size()));
    if (size < 0 || size == target.size())
        return std::nullopt;
    target.truncate(size);
    return target;
}

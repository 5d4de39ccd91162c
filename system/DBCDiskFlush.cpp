// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCDiskFlush.h"

#include "system/DBCDescriptor.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>

namespace {

// Repeats a call that a signal interrupted, because an interruption says nothing about the disk.
template <typename Call> bool untilDone(Call call)
{
    int result = call();
    while (result != 0 && errno == EINTR)
        result = call();
    return result == 0;
}

} // namespace

bool DBCDiskFlush::fileSystemOf(const QString& path)
{
    const DBCDescriptor file(
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    return file && untilDone([&] { return syncfs(file.get()); });
}

bool DBCDiskFlush::file(int descriptor)
{
    return untilDone([&] { return fdatasync(descriptor); });
}

bool DBCDiskFlush::folder(const QString& path)
{
    const DBCDescriptor folder(
        open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return folder && untilDone([&] { return fsync(folder.get()); });
}

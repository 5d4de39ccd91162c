// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCWholeFile.h"

#include <QFile>

#include <cerrno>
#include <new>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Returns 0 or minus errno. Sets length to the number of bytes read.
qint32 readFully(int descriptor, QByteArray* buffer, qsizetype* length)
{
    for (*length = 0; *length < buffer->size();) {
        const ssize_t count = ::read(
            descriptor, buffer->data() + *length, static_cast<size_t>(buffer->size() - *length));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return -errno;
        if (count == 0)
            break;
        *length += count;
    }
    return 0;
}

} // namespace

DBCDescriptor openForReading(const QString& path)
{
    constexpr int flags = O_RDONLY | O_NONBLOCK | O_CLOEXEC;
    return DBCDescriptor(::open(QFile::encodeName(path).constData(), flags));
}

qint32 readWholeFile(const DBCDescriptor& file, QByteArray* out)
{
    constexpr qint64 lengthLimit = 4LL * 1024 * 1024 * 1024;
    out->clear();
    struct stat status { };
    if (::fstat(file.get(), &status) != 0)
        return -errno;
    if (!S_ISREG(status.st_mode) || status.st_size >= lengthLimit)
        return DBCNotReadWhole;
    QByteArray buffer;
    try {
        buffer.resize(status.st_size);
    } catch (const std::bad_alloc&) {
        return DBCNotReadWhole;
    }
    qsizetype length = 0;
    if (const qint32 error = readFully(file.get(), &buffer, &length); error != 0)
        return error;
    if (length != buffer.size())
        return DBCNotReadWhole;
    *out = std::move(buffer);
    return 0;
}

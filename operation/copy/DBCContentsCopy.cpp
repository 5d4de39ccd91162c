// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/copy/DBCContentsCopy.h"

#include <algorithm>
#include <vector>

#include <cerrno>
#include <sys/sendfile.h>
#include <unistd.h>

namespace {

constexpr std::size_t readBufferSize = std::size_t(128) << 10;

bool isUnsupported(int error)
{
    constexpr std::array unsupported {EXDEV, EINVAL, ENOSYS, EOPNOTSUPP, EPERM, ESPIPE};
    return std::find(unsupported.begin(), unsupported.end(), error) != unsupported.end();
}

bool writeAll(int to, const char* bytes, std::size_t length)
{
    while (length > 0) {
        const ssize_t written = write(to, bytes, length);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes += written;
        length -= static_cast<std::size_t>(written);
    }
    return true;
}

} // namespace

ssize_t DBCContentsCopy::byRange(int from, int to, std::size_t length)
{
    return copy_file_range(from, nullptr, to, nullptr, length, 0);
}

ssize_t DBCContentsCopy::bySending(int from, int to, std::size_t length)
{
    return sendfile(to, from, nullptr, length);
}

ssize_t DBCContentsCopy::byReading(int from, int to, std::size_t length)
{
    std::vector<char> buffer(std::min(length, readBufferSize));
    const ssize_t got = read(from, buffer.data(), buffer.size());
    if (got > 0 && !writeAll(to, buffer.data(), static_cast<std::size_t>(got)))
        return -1;
    return got;
}

std::optional<std::size_t> DBCContentsCopy::next()
{
    while (true) {
        const ssize_t moved = _ways.front()(_from, _to, pieceSize);
        if (moved > 0) {
            _hasMoved = true;
            return static_cast<std::size_t>(moved);
        }
        if (moved < 0 && errno == EINTR)
            continue;
        if (moved < 0 && !isUnsupported(errno))
            return std::nullopt;
        // Some file systems report the end although nothing has been copied. So this function takes
        // 0 for the end only if the current way has copied something before or is the last way.
        const bool isEnd = moved == 0 && (_hasMoved || _ways.size() == 1);
        if (isEnd)
            return 0;
        if (_ways.size() == 1)
            return std::nullopt;
        _ways = _ways.subspan(1);
        _hasMoved = false;
    }
}

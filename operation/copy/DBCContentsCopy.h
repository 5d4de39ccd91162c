// SPDX-License-Identifier: GPL-3.0-or-later
// Copies the contents of one open file into another, one piece per call, so that the caller can
// check for a cancel in between.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include <sys/types.h>

class DBCContentsCopy {
public:
    // Copies up to length bytes from the position of one file to that of the other and advances
    // both positions. Returns the number of bytes copied, 0 at the end, or -1 with errno.
    using Way = ssize_t (*)(int from, int to, std::size_t length);

    // If the file system can do so, makes both files share their blocks (a clone). Otherwise the
    // kernel copies the bytes.
    static ssize_t byRange(int from, int to, std::size_t length);
    // The kernel copies the bytes, also between two file systems.
    static ssize_t bySending(int from, int to, std::size_t length);
    // Reads and writes through a buffer, which works everywhere.
    static ssize_t byReading(int from, int to, std::size_t length);

    // The fastest way comes first. If the two files do not support a way, next() changes to the one
    // after it.
    static constexpr std::array<Way, 3> allWays {byRange, bySending, byReading};

    // The caller owns the descriptors, and this object does not close them.
    DBCContentsCopy(int from, int to, std::span<const Way> ways = allWays)
        : _from(from)
        , _to(to)
        , _ways(ways)
    {
    }

    // Copies the next piece, at most pieceSize bytes, and returns its size, which is 0 at the end.
    // Returns std::nullopt on an error.
    std::optional<std::size_t> next();

    static constexpr std::size_t pieceSize = std::size_t(8) << 20;

private:
    int _from;
    int _to;
    std::span<const Way> _ways;
    bool _hasMoved = false; // whether the current way has copied anything
};

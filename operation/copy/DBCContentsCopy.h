// SPDX-License-Identifier: GPL-3.0-or-later
// Copies the contents of one open file into another, a piece at a time.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include <sys/types.h>

class DBCContentsCopy {
public:
    // Moves up to length bytes from one file's position to the other's and both positions along:
    // the number of bytes moved, 0 at the end, -1 with errno.
    using Way = ssize_t (*)(int from, int to, std::size_t length);

    // Clones where the file system can, and copies inside the kernel elsewhere.
    static ssize_t byRange(int from, int to, std::size_t length);
    // Inside the kernel from one file system to another.
    static ssize_t bySending(int from, int to, std::size_t length);
    // Works everywhere.
    static ssize_t byReading(int from, int to, std::size_t length);

    // Best first; a way that the two files do not support gives way to the next.
    static constexpr std::array<Way, 3> allWays {byRange, bySending, byReading};

    // The descriptors are the caller's and stay open.
    DBCContentsCopy(int from, int to, std::span<const Way> ways = allWays)
        : _from(from)
        , _to(to)
        , _ways(ways)
    {
    }

    // The size of the next piece, at most pieceSize bytes, now copied; 0 at the end; none on error.
    std::optional<std::size_t> next();

    static constexpr std::size_t pieceSize = std::size_t(8) << 20;

private:
    int _from;
    int _to;
    std::span<const Way> _ways;
    bool _hasMoved = false; // by the way in use
};

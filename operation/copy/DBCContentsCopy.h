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

    // Shares the blocks where the file system can (a clone), else copies inside the kernel.
    static ssize_t byRange(int from, int to, std::size_t length);
    // Copies inside the kernel, also between two file systems.
    static ssize_t bySending(int from, int to, std::size_t length);
    // Reads and writes through a buffer, which works everywhere.
    static ssize_t byReading(int from, int to, std::size_t length);

    // The fastest comes first. When the two files do not support one, the next is used.
    static constexpr std::array<Way, 3> allWays {byRange, bySending, byReading};

    // The descriptors are the caller's and stay open.
    DBCContentsCopy(int from, int to, std::span<const Way> ways = allWays)
        : _from(from)
        , _to(to)
        , _ways(ways)
    {
    }

    // Copies the next piece, at most pieceSize bytes, and returns its size: 0 at the end, none on
    // error.
    std::optional<std::size_t> next();

    static constexpr std::size_t pieceSize = std::size_t(8) << 20;

private:
    int _from;
    int _to;
    std::span<const Way> _ways;
    bool _hasMoved = false; // whether the present way has copied anything
};

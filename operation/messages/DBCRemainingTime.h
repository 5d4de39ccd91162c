// SPDX-License-Identifier: GPL-3.0-or-later
// Estimates how long the rest of a counted operation will take from the time that the finished part
// has taken. Used on one thread, by the window and by the terminal's progress line.
#pragma once

#include <QElapsedTimer>

#include <optional>

class DBCRemainingTime {
public:
    // Starts the measurement, or restarts it if it is already running.
    void start() { _sinceStart.start(); }
    void stop() { _sinceStart.invalidate(); }

    // Returns the remaining time in whole seconds, rounded up. Returns std::nullopt before start(),
    // after stop(), in the first two seconds, and until one item is finished.
    std::optional<qint64> seconds(qint64 finishedCount, qint64 maxCount) const;

    // Returns the same for a given time since the start, in milliseconds.
    static std::optional<qint64> secondsAfter(
        qint64 elapsed, qint64 finishedCount, qint64 maxCount);

private:
    QElapsedTimer _sinceStart;
};

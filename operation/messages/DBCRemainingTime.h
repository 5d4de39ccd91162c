// SPDX-License-Identifier: GPL-3.0-or-later
// How long the rest of a counted operation will take, judged by what is done.
#pragma once

#include <QElapsedTimer>

#include <optional>

class DBCRemainingTime {
public:
    // Counting begins; former knowledge is forgotten.
    void start() { _sinceStart.start(); }
    void stop() { _sinceStart.invalidate(); }

    // Whole seconds, rounded up. None while too little is done to tell, and before start().
    std::optional<qint64> seconds(qint64 finishedCount, qint64 maxCount) const;

    // The rule behind it: elapsed in milliseconds.
    static std::optional<qint64> secondsAfter(
        qint64 elapsed, qint64 finishedCount, qint64 maxCount);

private:
    QElapsedTimer _sinceStart;
};

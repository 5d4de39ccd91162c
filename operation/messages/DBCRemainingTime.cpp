// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/messages/DBCRemainingTime.h"

namespace {

// The first cards are slow because the caches are cold. An estimate from them alone would be far
// too long and would then keep falling.
constexpr qint64 millisecondsToWatch = 2000;
constexpr qint64 millisecondsPerSecond = 1000;

} // namespace

std::optional<qint64> DBCRemainingTime::seconds(qint64 finishedCount, qint64 maxCount) const
{
    if (!_sinceStart.isValid())
        return std::nullopt;
    return secondsAfter(_sinceStart.elapsed(), finishedCount, maxCount);
}

std::optional<qint64> DBCRemainingTime::secondsAfter(
    qint64 elapsed, qint64 finishedCount, qint64 maxCount)
{
    if (elapsed < millisecondsToWatch || finishedCount <= 0)
        return std::nullopt;
    const qint64 rest = elapsed * (maxCount - finishedCount) / finishedCount;
    return (rest + millisecondsPerSecond - 1) / millisecondsPerSecond;
}

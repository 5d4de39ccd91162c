// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCProgressLine.h"

#include "cli/DBCTerminal.h"
#include "datafile/helpers/DBCLocalizable.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 millisecondsBetweenWrites = 100;
// Loading the data file or fetching the cards counts as two steps, as in the window's progress bar.
constexpr qint64 stepsBeforeCards = 2;
constexpr const char* eraseLine = "\r\033[K";

// Returns a text like "1:05" or "2:00:09".
QString clockTime(qint64 seconds)
{
    const qint64 minutes = seconds / 60;
    const auto twoDigits = [](qint64 number) { return u"%1"_s.arg(number, 2, 10, QChar(u'0')); };
    if (minutes < 60)
        return QString::number(minutes) + u':' + twoDigits(seconds % 60);
    return QString::number(minutes / 60) + u':' + twoDigits(minutes % 60) + u':'
        + twoDigits(seconds % 60);
}

} // namespace

DBCProgressLine::DBCProgressLine(Visibility visibility)
    : _visibility(visibility)
{
}

void DBCProgressLine::showStage(const QString& text)
{
    write(text);
    _sinceLastWrite.invalidate();
}

void DBCProgressLine::beginCounting()
{
    _remainingTime.start();
    _sinceLastWrite.invalidate();
}

void DBCProgressLine::showCounts(const char* formatKey, qint64 finishedCount, qint64 maxCount)
{
    const bool isLast = finishedCount == maxCount;
    if (_sinceLastWrite.isValid() && !isLast
        && !_sinceLastWrite.hasExpired(millisecondsBetweenWrites))
        return;
    _sinceLastWrite.start();
    const qint64 percentage
        = (finishedCount + stepsBeforeCards) * 100 / (maxCount + stepsBeforeCards);
    const QString stage = getLocalString(formatKey, {percentage});
    const QString time = remainingTime(finishedCount, maxCount);
    write(time.isEmpty()
            ? getLocalString(u"IDS_CLI_PROGRESS"_s, {stage, finishedCount, maxCount})
            : getLocalString(u"IDS_CLI_PROGRESS_TIME"_s, {stage, finishedCount, maxCount, time}));
}

QString DBCProgressLine::remainingTime(qint64 finishedCount, qint64 maxCount) const
{
    const std::optional<qint64> seconds = _remainingTime.seconds(finishedCount, maxCount);
    return seconds ? clockTime(*seconds) : QString();
}

void DBCProgressLine::write(const QString& text)
{
    if (_visibility == Visibility::Hidden)
        return;
    std::fputs(eraseLine, stderr);
    DBCTerminal::write(stderr, text);
    _isOnScreen = true;
}

void DBCProgressLine::clear()
{
    if (_isOnScreen) {
        std::fputs(eraseLine, stderr);
        std::fflush(stderr);
    }
    _isOnScreen = false;
}

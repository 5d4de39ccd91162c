// SPDX-License-Identifier: GPL-3.0-or-later
// A line on standard error that is rewritten in place while an operation runs.
#pragma once

#include "operation/messages/DBCRemainingTime.h"

#include <QElapsedTimer>
#include <QString>

class DBCProgressLine {
public:
    enum class Visibility : bool { Hidden, Shown };
    explicit DBCProgressLine(Visibility visibility);
    ~DBCProgressLine() { clear(); }
    DBCProgressLine(const DBCProgressLine&) = delete;
    DBCProgressLine& operator=(const DBCProgressLine&) = delete;

    // Shows the name of a stage that does not count cards.
    void showStage(const QString& text);
    // Starts the measurement from which the remaining time is estimated.
    void beginCounting();
    // Shows the percentage. formatKey is the key of a text with a place for the percentage. The
    // line is rewritten at most ten times a second, so a call may show nothing.
    void showCounts(const char* formatKey, qint64 finishedCount, qint64 maxCount);
    // Erases the line.
    void clear();

private:
    void write(const QString& text);
    QString remainingTime(qint64 finishedCount, qint64 maxCount) const;

    Visibility _visibility;
    bool _isOnScreen = false;
    DBCRemainingTime _remainingTime;
    QElapsedTimer _sinceLastWrite;
};

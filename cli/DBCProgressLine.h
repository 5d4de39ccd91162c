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

    // Shows a stage that has no counts.
    void showStage(const QString& text);
    // Starts the measurement from which the remaining time is estimated.
    void beginCounting();
    // formatKey is the key of a text that takes the percentage. The line is written at most ten
    // times a second.
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

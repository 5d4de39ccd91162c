// SPDX-License-Identifier: GPL-3.0-or-later
// One line on standard error that is written over and over while an operation runs.
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

    // A stage without counts.
    void showStage(const QString& text);
    // From now on counts are timed.
    void beginCounting();
    // formatKey's text takes the percentage. Written at most ten times a second.
    void showCounts(const char* formatKey, qint64 finishedCount, qint64 maxCount);
    void clear();

private:
    void write(const QString& text);
    QString remainingTime(qint64 finishedCount, qint64 maxCount) const;

    Visibility _visibility;
    bool _isOnScreen = false;
    DBCRemainingTime _remainingTime;
    QElapsedTimer _sinceLastWrite;
};

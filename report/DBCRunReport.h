// SPDX-License-Identifier: GPL-3.0-or-later
// All that the report about one conversion says.
#pragma once

#include "operation/base/DBCOperation.h"
#include "operation/log/DBCLogEntry.h"

#include <QDateTime>
#include <QString>

#include <vector>

// Reports that are kept beside the log; the page tells its reader so.
inline constexpr int DBCMostReports = 20;

enum class DBCRunEnd : quint8 {
    Done,
    DoneWithWarnings,
    Cancelled, // what had been done is undone
    Failed, // import: the card database is as it was; export: what had been written stays
    FailedAndNotRestored, // the card database may be incomplete
};

struct DBCReportedCard {
    qint64 number = 0; // line of the data file on import, number of the card on export
    QString name; // empty: not known
    std::vector<DBCLogEntry> problems; // never empty; in the order of the log
};

struct DBCRunReport {
    OperationType operation = OperationType::None;
    QString folder; // the interchange folder
    QString package;
    QString backupPath; // empty: there is none
    QString logPath;

    DBCRunEnd end = DBCRunEnd::Done;
    DBCResultCode code = DBCResultCode::Success;
    QDateTime started;
    qint64 milliseconds = 0; // from the start to the end
    qint64 maxCount = 0; // cards there were
    qint64 finishedCount = 0; // cards handled, be they undone later
    qint64 warningCount = 0;
    qint64 errorCount = 0;

    std::vector<DBCLogEntry> messages; // shown to the user: why the conversion failed
    std::vector<DBCReportedCard> cards; // with warnings or errors, by their numbers
    std::vector<DBCLogEntry> others; // about no single card, and no messages
    qint64 concernedCardCount = 0; // cards with warnings or errors, those left out below included
    qint64 leftOutCount = 0; // warnings and errors that were too many to be kept
};
